#pragma once

#include "platform/control.h"
#include "platform/win32/handle.h"

namespace platform::win32 {

/// The font that windows shall have, by the user's settings.
Font messageFont();
UniqueFont makeFont(const Font& font, int dpi);

/// Size of a text on one line, in pixels.
SIZE textExtent(HFONT font, const std::wstring& text);
TEXTMETRICW textMetrics(HFONT font);

}  // namespace platform::win32
