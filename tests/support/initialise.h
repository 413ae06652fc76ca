#pragma once

namespace support {

/// What the platform wants done once before the first control is made.
void initialise();

}  // namespace support
