#include "controls/buttonlist/kvButtonList.h"

#include <algorithm>
#include <limits>

#include "platform/errors.h"
#include "platform/metrics.h"

namespace controls {

using platform::Button;
using platform::Rect;
using platform::RuntimeError;
using platform::ScrollBar;

namespace {

constexpr int edge = 2;  // width of the sunken frame
constexpr int wheelNotch = 120;
constexpr int frame = 8;       // what a button needs beside its caption
constexpr int hintSpace = 10;  // and what stands around its digit
constexpr std::string_view digits = "1234567890";
constexpr std::size_t mostItems = std::numeric_limits<std::int16_t>::max();

void requireRoom(std::size_t items) {
    if (items > mostItems)
        throw RuntimeError(platform::error::overflow, "Mehr als 32767 Schaltflächen sind nicht möglich.");
}

}  // namespace

kvButtonList::kvButtonList(platform::Container& parent, const std::string& name)
    : UserControl(parent, name, "kvButtonList"), VScroll1(*this, "VScroll1", ScrollBar::Direction::vertical) {
    setRole(Role::grouping);
    VScroll1.setAccessibleName("Schaltflächen rollen");
    button(0).setVisible(false);
    VScroll1.setRange(1, 1);
    VScroll1.setEnabled(false);
    VScroll1.onChange = VScroll1.onScroll = [this] { showCaptions(); };
    onResize = [this] { Refresh(); };
    onPaint = [this](platform::Canvas& canvas) { paint(canvas); };
    onWheel = [this](int notches, int, platform::Point) { wheel(notches); };
}

// --- Items

std::size_t kvButtonList::position(std::int32_t index) const {
    if (index < 0 || index >= count())
        throw RuntimeError(platform::error::subscriptOutOfRange, "Diese Schaltfläche gibt es nicht.");
    return static_cast<std::size_t>(index) + 1;
}

void kvButtonList::Add(const std::string& Caption, const std::string& Second, const std::string& Third) {
    requireRoom(items_.size());
    items_.push_back({Caption, Second, Third});
    Refresh();
}

void kvButtonList::SetAll(const std::vector<std::string>& captions) {
    requireRoom(captions.size());
    items_.resize(1);
    for (const std::string& caption : captions) items_.push_back({caption, {}, {}});
    Refresh();
}

void kvButtonList::Clear() {
    items_.resize(1);
    Refresh();
}

void kvButtonList::Remove(std::int16_t Index) {
    items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(position(Index)));
    Refresh();
}

void kvButtonList::Rename(std::int16_t Index, const std::string& Caption,
                          const std::optional<std::string>& Second, const std::optional<std::string>& Third) {
    Item& item = items_[position(Index)];
    item.Caption = Caption;
    if (Second) item.Second = *Second;
    if (Third) item.Third = *Third;
    Refresh();
}

// --- Layout

void kvButtonList::Refresh() {
    if (buttonHeight_ < 1) return;
    layOutScrollBar(layOutSlots());
    showCaptions();
    invalidate();
}

Button& kvButtonList::button(int slot) {
    const auto index = static_cast<std::size_t>(slot);
    if (index < Command1.size()) return *Command1[index];
    Command1.push_back(std::make_unique<Button>(*this, "Command1(" + std::to_string(slot) + ")"));
    Button& made = *Command1.back();
    made.onClick = [this, slot] { pressed(slot); };
    if (slot > 0) {  // later ones are like the first
        made.setBackColour(Command1.front()->backColour());
        made.setEnabled(Command1.front()->enabled());
        made.setFont(Command1.front()->font());
    }
    return made;
}

int kvButtonList::layOutSlots() {
    const int width = std::max(0, clientSize().width - platform::metricsOf(*this).vScrollWidth - 2 * edge);
    int slots = 0;
    for (int rest = clientSize().height - 2 * edge; rest >= buttonHeight_; rest -= buttonHeight_, ++slots) {
        const bool isMade = static_cast<std::size_t>(slots) < Command1.size();
        if (!isMade && slots >= count()) continue;  // windows take time, and a large control has many slots
        Button& shown = button(slots);
        const Rect place = Rect::at(edge, edge + buttonHeight_ * slots, width, buttonHeight_);
        if (shown.bounds() != place) shown.move(place);
        shown.setVisible(count() > slots);
    }
    for (std::size_t i = static_cast<std::size_t>(slots); i < Command1.size(); ++i)
        Command1[i]->setVisible(false);
    return slots;
}

void kvButtonList::layOutScrollBar(int slots) {
    const platform::Size inner = clientSize();
    const int width = platform::metricsOf(*this).vScrollWidth;
    const Rect place =
        Rect::at(inner.width - width - edge, edge, width, std::max(0, inner.height - 2 * edge));
    if (VScroll1.bounds() != place) VScroll1.move(place);
    VScroll1.setEnabled(count() > slots);
    // With fewer items than slots the list starts at its first item again, however far it was scrolled.
    const int maximum = std::max(1, count() - slots + 1);
    if (VScroll1.maximum() != maximum) VScroll1.setRange(1, maximum);
}

void kvButtonList::showCaptions() {
    for (std::size_t i = 0; i < Command1.size(); ++i) {
        const std::size_t number = static_cast<std::size_t>(VScroll1.value()) + i;
        Button& slot = *Command1[i];
        if (!slot.visible() || number >= items_.size()) continue;
        const std::string& caption = items_[number].Caption;
        if (slot.caption() != caption) slot.setPlainCaption(caption);
        // What a button cannot show whole it tells when the mouse rests on it.
        slot.setKeyHint(showDigits_ && i < digits.size() ? std::string(1, digits[i]) : std::string());
        const int hint = showDigits_ ? platform::textWidth(slot, "0") + hintSpace : 0;
        const bool fits = platform::textWidth(slot, caption) + frame + hint <= slot.bounds().width();
        slot.setToolTip(fits ? std::string() : caption);
    }
}

void kvButtonList::pressed(int slot) {
    const std::int32_t number = slot + VScroll1.value() - 1;
    // Without a valid height the buttons stay when the items go.
    if (number >= count() || !Click) return;
    auto index = static_cast<std::int16_t>(number);
    Click(index);
}

// --- Keyboard

void kvButtonList::ShowDigits(bool ShowDigits) {
    showDigits_ = ShowDigits;
    showCaptions();
}

int kvButtonList::ShownCount() const {
    return static_cast<int>(
        std::count_if(Command1.begin(), Command1.end(), [](const auto& slot) { return slot->visible(); }));
}

void kvButtonList::PressShown(int slot) {
    if (slot >= 0 && slot < ShownCount() && Command1[static_cast<std::size_t>(slot)]->enabled())
        pressed(slot);
}

void kvButtonList::ScrollPages(int pages) {
    if (VScroll1.enabled()) VScroll1.setValue(VScroll1.value() + pages * ShownCount());
}

bool kvButtonList::MoveFocus(int by) {
    const auto focused =
        std::find_if(Command1.begin(), Command1.end(), [](const auto& slot) { return slot->focused(); });
    if (focused == Command1.end()) return false;
    const int wanted = static_cast<int>(focused - Command1.begin()) + by;
    const int shown = std::clamp(wanted, 0, ShownCount() - 1);
    if (VScroll1.enabled()) VScroll1.setValue(VScroll1.value() + wanted - shown);
    Command1[static_cast<std::size_t>(shown)]->focus();
    return true;
}

void kvButtonList::wheel(int notches) {
    wheelRest_ += notches;
    const int items = wheelRest_ / wheelNotch;
    wheelRest_ -= items * wheelNotch;
    if (VScroll1.enabled()) VScroll1.setValue(VScroll1.value() - items);
}

// --- Properties

void kvButtonList::BackColor(std::uint32_t BackColor) {
    for (const auto& slot : Command1) slot->setBackColour(BackColor);
    changed("BackColor");
}

void kvButtonList::Enabled(bool Enabled) {
    for (const auto& slot : Command1) slot->setEnabled(Enabled);
    changed("Enabled");
}

platform::Font kvButtonList::Font() const {
    return Command1.front()->font();
}

void kvButtonList::Font(const platform::Font& Font) {
    for (const auto& slot : Command1) slot->setFont(Font);
    changed("Font");
}

void kvButtonList::ButtonHeight(std::int16_t ButtonHeight) {
    buttonHeight_ = ButtonHeight;
    changed("ButtonHeight");
    Refresh();
}

void kvButtonList::changed(std::string_view key) const {
    if (onPropertyChanged) onPropertyChanged(key);
}

void kvButtonList::ReadProperties(const PropertyBag& bag) {
    constexpr std::uint32_t buttonFace = 0x8000000F;
    backColour_ = static_cast<std::uint32_t>(bag.read("BackColor", static_cast<std::int32_t>(buttonFace)));
    setEnabled(bag.read("Enabled", true));
    Font(bag.read("Font", font()));
    const std::int32_t height = bag.read("ButtonHeight", std::int32_t{23});
    if (height != static_cast<std::int16_t>(height))
        throw RuntimeError(platform::error::overflow, "Ungültige Höhe der Schaltflächen.");
    buttonHeight_ = static_cast<std::int16_t>(height);
    invalidate();
}

void kvButtonList::WriteProperties(PropertyBag& bag) const {
    bag.write("BackColor", static_cast<std::int32_t>(BackColor()));
    bag.write("Enabled", Enabled());
    bag.write("Font", Font());
    bag.write("ButtonHeight", std::int32_t{buttonHeight_});
}

// --- Painting

namespace {

/// A colour of the property as one to draw with.
platform::Colour toDraw(std::uint32_t colour) {
    using platform::SystemColour;
    if ((colour & 0x80000000) == 0) return (colour & 0xFF) << 16 | (colour & 0xFF00) | (colour >> 16 & 0xFF);
    switch (colour & 0xFF) {
        case 5:
            return platform::systemColour(SystemColour::window);
        case 8:
            return platform::systemColour(SystemColour::windowText);
        case 13:
            return platform::systemColour(SystemColour::highlight);
        case 17:
            return platform::systemColour(SystemColour::greyText);
        case 24:
            return platform::systemColour(SystemColour::infoBackground);
        default:
            return platform::systemColour(SystemColour::buttonFace);
    }
}

}  // namespace

void kvButtonList::paint(platform::Canvas& canvas) const {
    const Rect inner = Rect::at(0, 0, clientSize().width, clientSize().height);
    canvas.fill(inner, toDraw(backColour_));
    canvas.sunkenEdge(inner);
}

}  // namespace controls
