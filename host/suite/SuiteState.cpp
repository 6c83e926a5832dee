#include "host/suite/SuiteState.h"

namespace kvex::host {

SuiteState &suiteState() {
    static SuiteState state;
    return state;
}

} // namespace kvex::host
