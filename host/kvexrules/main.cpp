// kvexrules: opens the rule editor, and serves operators at a terminal.
#include "host/kvexrules/Commands.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/Failure.h"
#include "platform/Error.h"

#include <exception>

int main(int count, char **arguments) {
    using namespace kvex::host;
    try {
        secureStandardStreams();
        const std::span<const char *const> words(arguments, static_cast<std::size_t>(count));
        const Request request =
            parseArguments(words.subspan(count > 0 ? 1 : 0), commands(), options());
        return request.command->run(request);
    } catch (const ReaderGone &) {
        return exit_status::done;
    } catch (const Failure &failure) {
        complain(failure.what());
        return failure.status();
    } catch (const std::exception &error) {
        complain(std::string("This should not have happened: ") + error.what() + ".");
        return exit_status::unusable;
    }
}
