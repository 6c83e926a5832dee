// kvexrules: opens the rule editor, and serves operators at a terminal.
#include "host/kvexrules/CommandLine.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/Failure.h"
#include "platform/Error.h"

#include <exception>

int main(int count, char **arguments) {
    using namespace kvex::host;
    try {
        secureStandardStreams();
        const auto words =
            std::span<char *const>(arguments, static_cast<std::size_t>(count)).subspan(count > 0);
        const Request request = parseArguments(words, commands());
        hidePasswords(words);
        return request.command->run(request);
    } catch (const ReaderGone &) {
        return exit_status::done;
    } catch (const Failure &failure) {
        complain(failure.what());
        return failure.status();
    } catch (const std::exception &error) {
        complain(std::string("An unexpected error occurred: ") + error.what() + ".");
        return exit_status::unusable;
    }
}
