#include "platform/win32/colours.h"

#include "platform/win32/windows.h"

namespace platform::win32 {

bool isHighContrast() {
    HIGHCONTRASTW contrast{sizeof contrast, 0, nullptr};
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) != 0 &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

}  // namespace platform::win32
