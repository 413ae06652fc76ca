#include "tests/support/initialise.h"

namespace support {

void initialise() {}

}  // namespace support
