#include "platform/win32/fonts.h"

#include <string>

#include "platform/win32/failure.h"
#include "platform/win32/wide.h"

namespace platform::win32 {

namespace {

constexpr int tenthPointsPerInch = 720;

/// Kept: a window measures a hundred texts before it is there.
HDC measuringDc() {
    static const UniqueDc dc(require(CreateCompatibleDC(nullptr), "Schrift messen"));
    return dc.get();
}

}  // namespace

Font messageFont() {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    constexpr UINT atDpi = 96;
    require(SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, atDpi),
            "Schrift des Systems ermitteln");
    const LOGFONTW& logical = metrics.lfMessageFont;
    const std::wstring face = logical.lfFaceName;
    // Wine: its message font is Tahoma 8, for which no present Windows lays its windows out.
    if (face == L"Tahoma") return {.face = "Segoe UI"};
    return {.face = narrow(face),
            .tenthPoints = MulDiv(std::abs(logical.lfHeight), tenthPointsPerInch, static_cast<int>(atDpi)),
            .bold = logical.lfWeight >= FW_BOLD,
            .italic = logical.lfItalic != 0};
}

UniqueFont makeFont(const Font& font, int dpi) {
    LOGFONTW logical{};
    logical.lfHeight = -MulDiv(font.tenthPoints, dpi, tenthPointsPerInch);
    logical.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
    logical.lfItalic = font.italic;
    logical.lfCharSet = DEFAULT_CHARSET;
    wide(font.face).copy(logical.lfFaceName, LF_FACESIZE - 1);
    return UniqueFont(require(CreateFontIndirectW(&logical), "Schrift anlegen"));
}

SIZE textExtent(HFONT font, const std::wstring& text) {
    const HDC dc = measuringDc();
    const Selected selected(dc, font);
    SIZE size{};
    require(GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size),
            "Schrift messen");
    return size;
}

TEXTMETRICW textMetrics(HFONT font) {
    const HDC dc = measuringDc();
    const Selected selected(dc, font);
    TEXTMETRICW metrics{};
    require(GetTextMetricsW(dc, &metrics), "Schrift messen");
    return metrics;
}

}  // namespace platform::win32
