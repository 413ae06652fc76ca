// Where everything stands in the window. All sizes come from the font and the resolution of the monitor.
#include <algorithm>
#include <initializer_list>

#include "editor/frmStich.h"
#include "editor/icons.h"
#include "platform/metrics.h"

namespace editor {

namespace {

using platform::Control;
using platform::Metrics;
using platform::Rect;

// At 96 dots per inch.
constexpr int smallestLeft = 272;
constexpr int smallestRight = 330;
constexpr int smallestPage = 165;
constexpr int smallestItems = 80;
constexpr int smallestClassButtons = 110;
constexpr int classButtonHeight = 23;
constexpr int longestSlider = 170;
constexpr int longestProgress = 400;

/// The measures that the whole window shares.
struct Units : Metrics {
    explicit Units(const Metrics& metrics) : Metrics(metrics) {}
    int margin() const { return px(7); }
    int gap() const { return px(4); }
    int bar() const { return px(6); }
    int row() const { return std::max(comboHeight, lineHeight + px(8)); }
    /// Label beside a field: its text stands as high as the field's.
    Rect label(int x, int y, int width) const {
        return Rect::at(x, y + (row() - lineHeight) / 2, width, lineHeight);
    }
    /// A text box in a row. It shows its text below an edge of two pixels and one of air; the same below the
    /// text makes it stand in the middle.
    Rect box(int left, int y, int right) const {
        const int height = std::min(row(), lineHeight + 6);
        const int top = y + (row() - height) / 2;
        return {left, top, right, top + height};
    }
    /// A combo box in a row: where a row is higher, its text would not stand in its middle.
    Rect combo(int left, int y, int right) const {
        const int top = y + (row() - comboHeight) / 2;
        return {left, top, right, top + comboHeight};
    }
    template <class Captioned>
    int buttonWidth(const Captioned& button) const {
        return std::max(px(64), platform::textWidth(button, button.caption()) + px(20));
    }
    int labelWidth(const platform::Label& text) const {
        return platform::textWidth(text, text.caption()) + px(5);
    }
};

/// Buttons of one width below each other; they give way when the height is small.
void stack(const Units& u, Rect area, std::initializer_list<platform::Button*> buttons) {
    const int space = u.px(3);
    const int count = static_cast<int>(buttons.size());
    const int height = std::min(u.row(), (area.height() - space * (count - 1)) / count);
    int y = area.top;
    for (platform::Button* button : buttons) {
        button->move(Rect::at(area.left, y, area.width(), height));
        y += height + space;
    }
}

int clampBetween(int value, int least, int most) {
    return std::max(least, std::min(value, most));
}

}  // namespace

void frmStich::layOut() {
    const Units u(platform::metricsOf(form));
    const auto [width, height] = form.clientSize();
    const int left = u.margin();
    const int right = width - u.margin();
    int bottom = height - u.margin();
    if (fraWait.visible()) {
        layOutWait({left, bottom - u.row(), right, bottom});
        bottom -= u.row() + u.gap();
    }
    const int top = u.margin() + u.row() + u.px(6);
    layOutTopRow(left, right);

    kvBar2.setLimits(smallestLeft, u.at96(width - 2 * u.margin()) - smallestRight);
    const int barLeft = left + u.px(kvBar2.position());
    kvBar2.control().move({barLeft, top, barLeft + u.bar(), bottom});
    layOutLeft({left, top, barLeft, bottom});
    layOutRight({barLeft + u.bar(), top, right, bottom});
}

void frmStich::layOutWait(Rect area) {
    const Units u(platform::metricsOf(form));
    fraWait.move(area);
    const int buttonLeft = area.width() - u.buttonWidth(btnWait);
    btnWait.move({buttonLeft, 0, area.width(), area.height()});
    const int barLeft = std::max(u.labelWidth(lblWait) + u.gap(), buttonLeft - u.px(longestProgress));
    lblWait.move(u.label(0, 0, barLeft - u.gap()));
    kvProgressBar1.move({barLeft, u.px(4), buttonLeft - u.gap(), area.height() - u.px(4)});
}

void frmStich::layOutTopRow(int left, int right) {
    const Units u(platform::metricsOf(form));
    const int y = u.margin();
    for (platform::Button* button : {&btnAbbr, &btnOK}) {
        const int buttonWidth = u.buttonWidth(*button);
        button->move(Rect::at(right - buttonWidth, y, buttonWidth, u.row()));
        right -= buttonWidth + u.gap();
    }
    right -= u.px(12);
    const int labelWidth = u.labelWidth(lblSets);
    lblSets.move(u.label(left, y, labelWidth));
    const int fieldLeft = left + labelWidth + u.gap();
    const int buttons = u.buttonWidth(btnSave) + u.buttonWidth(btnGrab) + 2 * u.gap();
    const int fieldWidth = std::min(right - fieldLeft - buttons, u.px(320));
    cboSets.move(u.combo(fieldLeft, y, fieldLeft + fieldWidth));
    int x = fieldLeft + fieldWidth + u.gap();
    for (platform::Button* button : {&btnSave, &btnGrab}) {
        button->move(Rect::at(x, y, u.buttonWidth(*button), u.row()));
        x += u.buttonWidth(*button) + u.gap();
    }
}

void frmStich::layOutLeft(Rect area) {
    const Units u(platform::metricsOf(form));
    kvBar3.setLimits(u.at96(u.tabHeight) + smallestPage,
                     u.at96(area.height() - u.bar() - u.row() - u.gap()) - smallestItems);
    const int barTop = area.top + u.px(kvBar3.position());
    TabStrip1.move({area.left, area.top, area.right, barTop});
    const Rect page = TabStrip1.pageArea();
    for (platform::Panel* panel : {&fraFiles, &fraClasses, &fraROIs}) panel->move(page);
    layOutFiles(page.width(), page.height());
    layOutClasses(page.width(), page.height());
    layOutROIs(page.width(), page.height());

    kvBar3.control().move({area.left, barTop, area.right, barTop + u.bar()});
    const int y = barTop + u.bar();
    const int labelWidth = u.labelWidth(lblROI);
    lblROI.move(u.label(area.left, y, labelWidth));
    cboROI.move(u.combo(area.left + labelWidth + u.gap(), y, area.right));
    lvCItems.move({area.left, y + u.row() + u.gap(), area.right, area.bottom});
    if (const int current = lvCItems.firstSelected()) lvCItems.ensureVisible(current);
}

void frmStich::layOutFiles(int width, int height) {
    const Units u(platform::metricsOf(form));
    const int edge = u.px(6);
    const int right = width - edge;
    const int labelWidth = u.labelWidth(lblPath);
    lblPath.move(u.label(edge, edge, labelWidth));
    btnPath.move(Rect::at(right - u.px(28), edge, u.px(28), u.row()));
    txtPath.move(u.box(edge + labelWidth + u.gap(), edge, right - u.px(28) - u.gap()));

    const int listTop = edge + u.row() + u.gap();
    const int checkTop = height - edge - u.row();
    const int listBottom = checkTop - u.gap();
    const int column = u.px(34);
    const int listWidth = (width - 2 * edge - column - 2 * u.gap()) / 2;
    ListView1.move({edge, listTop, edge + listWidth, listBottom});
    const int columnLeft = edge + listWidth + u.gap();
    stack(u, {columnLeft, listTop, columnLeft + column, listBottom}, {&btn, &btn_A, &btnR, &btnRA});
    ListView2.move({columnLeft + column + u.gap(), listTop, right, listBottom});

    const int countWidth = platform::textWidth(txtPicCount, "100000 Elemente") + u.px(16);
    txtPicCount.move(u.box(right - countWidth, checkTop, right));
    chkDouble.move({edge, checkTop, right - countWidth - u.gap(), checkTop + u.row()});
}

void frmStich::layOutClasses(int width, int height) {
    const Units u(platform::metricsOf(form));
    const int edge = u.px(6);
    const int right = width - edge;
    const int labelWidth = std::max(u.labelWidth(lblCDescription), u.labelWidth(lblStdClass));
    const int fieldLeft = edge + labelWidth + u.gap();
    const int standardTop = height - edge - u.row();
    const int descriptionTop = standardTop - u.gap() - u.row();
    lblStdClass.move(u.label(edge, standardTop, labelWidth));
    cboStdClass.move(u.combo(fieldLeft, standardTop, right));
    lblCDescription.move(u.label(edge, descriptionTop, labelWidth));
    txtCDescription.move(u.box(fieldLeft, descriptionTop, right));

    const int listBottom = descriptionTop - u.gap();
    const int column = u.buttonWidth(btnCRename);
    lvCClasses.move({edge, edge, right - column - u.gap(), listBottom});
    stack(u, {right - column, edge, right, listBottom}, {&btnCNew, &btnCDel, &btnCRename, &btnCStd});
}

void frmStich::layOutROIs(int width, int height) {
    const Units u(platform::metricsOf(form));
    const int edge = u.px(6);
    const int right = width - edge;
    const int labelWidth = u.labelWidth(lblROIDescription);
    const int descriptionTop = height - edge - u.row();
    lblROIDescription.move(u.label(edge, descriptionTop, labelWidth));
    txtROIDescription.move(u.box(edge + labelWidth + u.gap(), descriptionTop, right));

    const int numbersTop = descriptionTop - u.gap() - u.row();
    const int captionTop = numbersTop - u.px(2) - u.lineHeight;
    lblROICaption.move(Rect::at(edge, captionTop, right - edge, u.lineHeight));
    const std::pair<platform::Label*, platform::TextBox*> numbers[] = {
        {&lblX, &txtX}, {&lblY, &txtY}, {&lblDX, &txtDX}, {&lblDY, &txtDY}};
    int boxes = right - edge - 3 * u.gap();  // what the labels leave
    for (const auto& [label, box] : numbers) boxes -= u.labelWidth(*label);
    int x = edge;
    for (const auto& [label, box] : numbers) {
        const int boxLeft = x + u.labelWidth(*label);
        label->move(u.label(x, numbersTop, boxLeft - x));
        box->move(u.box(boxLeft, numbersTop, boxLeft + boxes / 4));
        x = boxLeft + boxes / 4 + u.gap();
    }

    const int listBottom = captionTop - u.gap();
    const int column = u.buttonWidth(btnROIRename);
    lvROIs.move({edge, edge, right - column - u.gap(), listBottom});
    stack(u, {right - column, edge, right, listBottom}, {&btnROINew, &btnROIDel, &btnROIRename});
}

void frmStich::layOutRight(Rect area) {
    const Units u(platform::metricsOf(form));
    const auto bar = Toolbar1.preferredSize();
    const int barHeight = std::max(bar.height, u.row());
    Toolbar1.move(Rect::at(area.left, area.top + (barHeight - bar.height) / 2, bar.width, bar.height));
    const int timeLeft = area.left + bar.width + u.gap();
    const int timeWidth = platform::textWidth(txtTime, " 10,0s") + u.px(6);
    txtTime.move(
        Rect::at(timeLeft, area.top + (barHeight - u.lineHeight) / 2, timeWidth, u.lineHeight + u.px(1)));
    const int sliderLeft = timeLeft + timeWidth;
    const int sliderRight = std::min(area.right, sliderLeft + u.px(longestSlider));
    Slider1.move({sliderLeft, area.top, sliderRight, area.top + barHeight});

    const int sizeTop = area.bottom - u.row();
    const int infoTop = sizeTop - u.gap() - u.row();
    const int stretchWidth = platform::textWidth(chkStretch, "einpassen") + u.px(26);
    const int sizeWidth =
        std::min(platform::textWidth(txtSize, "10000 x 10000 Pixel, 24 Bit Farbtiefe") + u.px(16),
                 area.width() - stretchWidth - u.gap());
    txtInfo.move(u.box(area.left, infoTop, area.right));
    txtSize.move(u.box(area.left, sizeTop, area.left + sizeWidth));
    chkStretch.move({area.right - stretchWidth, sizeTop, area.right, sizeTop + u.row()});
    const int hintTop = infoTop - u.gap() - (lblHint.visible() ? u.lineHeight + u.px(1) : 0);
    lblHint.move({area.left, hintTop, area.right, hintTop + u.lineHeight + u.px(1)});

    const int pictureTop = area.top + barHeight + u.gap();
    const int pictureBottom = lblHint.visible() ? hintTop - u.gap() : infoTop - u.gap();
    const int buttonsLeft = area.right - classButtonsWidth(area.width());
    kvPictureBox1.move({area.left, pictureTop, buttonsLeft - u.gap(), pictureBottom});
    kvButtonList1.move({buttonsLeft, pictureTop, area.right, pictureBottom});
    const auto classHeight = static_cast<std::int16_t>(u.px(classButtonHeight));
    if (kvButtonList1.ButtonHeight() != classHeight) kvButtonList1.ButtonHeight(classHeight);
}

// Wide enough for the longest name, but the picture stays the biggest thing.
int frmStich::classButtonsWidth(int available) const {
    const Units u(platform::metricsOf(form));
    int widest = 0;
    for (int row = 1; row <= set_.classCount(); ++row) {
        widest = std::max(widest, platform::textWidth(kvButtonList1, set_.classRow(row).name));
    }
    const int digit = platform::textWidth(kvButtonList1, "0") + u.px(10);
    return clampBetween(digit + widest + u.vScrollWidth + u.px(24), u.px(smallestClassButtons),
                        available * 2 / 5);
}

void frmStich::toolbarReady() {
    makeIcons();
    layOut();
}

void frmStich::makeIcons() {
    using platform::SystemColour;
    const IconStyle style{platform::metricsOf(form).iconSize,
                          platform::systemColour(SystemColour::buttonFace),
                          platform::systemColour(SystemColour::window)};
    if (style == iconStyle_) return;
    iconStyle_ = style;
    Toolbar1.setImages(toolbarImages(style.size, style.barGround));
    const auto icons = pictureIcons(style.size, style.listGround);
    for (platform::ListView* list : {&ListView1, &ListView2, &lvCItems}) list->setIcons(icons);
}

}  // namespace editor
