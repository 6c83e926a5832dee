// The main function of test programs that cut the network; it gives them their own network.
#include "tests/faults/OwnNetwork.h"

#include <gtest/gtest.h>

#include <iostream>

int main(int count, char **arguments) {
    testing::InitGoogleTest(&count, arguments);
    try {
        kvex::test::enterOwnNetwork();
    } catch (const std::exception &failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
    return RUN_ALL_TESTS();
}
