// The main of test programs that cut the network: they have one of their own.
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
