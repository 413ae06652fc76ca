#pragma once

/// What kinds of controls are called among accessibility clients: the system's ROLE_SYSTEM_..., whose header
/// would bring all of COM along.
namespace platform::win32::role {

inline constexpr long separator = 0x15;
inline constexpr long scrollBar = 0x03;
inline constexpr long grouping = 0x14;
inline constexpr long toolBar = 0x16;
inline constexpr long graphic = 0x28;
inline constexpr long staticText = 0x29;
inline constexpr long text = 0x2A;
inline constexpr long pushButton = 0x2B;
inline constexpr long checkButton = 0x2C;
inline constexpr long comboBox = 0x2E;
inline constexpr long list = 0x21;
inline constexpr long progressBar = 0x30;
inline constexpr long slider = 0x33;
inline constexpr long pageTabList = 0x3C;

}  // namespace platform::win32::role
