#include "platform/application.h"

#include <cstdio>
#include <cstdlib>
#include <new>

#include "platform/dialogs.h"
#include "platform/errors.h"
#include "platform/files.h"
#include "platform/headless/desk.h"
#include "platform/headless/event.h"

namespace platform {

using headless::Desk;
using headless::FormWindow;

namespace headless {

void reportError() {
    const FormWindow* active = Desk::instance().active();
    const std::string title = active ? active->caption : std::string();
    try {
        throw;
    } catch (const std::bad_alloc&) {
        showMessage(nullptr, {"Der Arbeitsspeicher reicht nicht aus.", message::exclamation, title});
    } catch (const std::exception& error) {
        showMessage(nullptr, {error.what(), message::exclamation, title});
    } catch (...) {
        showMessage(nullptr, {"Unbekannter Fehler.", message::exclamation, title});
    }
}

}  // namespace headless

namespace application {

int run(Form& form) {
    Desk::instance().runWhile([&form] { return form.loaded(); }, [] { return false; });
    return 0;
}

void doEvents() {
    Desk::instance().runPending();
}

// Who waits looks again after a while: the clock goes on. Here nobody presses a key meanwhile.
bool doEventsFor(Container& only) {
    constexpr std::int64_t whileWaiting = 30;  // milliseconds
    Desk& desk = Desk::instance();
    desk.wait(only.native(), desk.now() + whileWaiting);
    return false;
}

// Whoever acts here acts at once.
std::optional<Press> currentPress() {
    return std::nullopt;
}

std::uint32_t inputTime() {
    return static_cast<std::uint32_t>(Desk::instance().now());
}

void guard(const std::function<void()>& handler) {
    headless::raise(handler);
}

void post(Form& form, std::function<void()> action) {
    Desk::instance().post(static_cast<FormWindow&>(form.native()), std::move(action));
}

// There is nothing here that could run a program of Windows; that it can be found is all there is to tell.
std::string userFolder() {
    const char* home = std::getenv("HOME");
    return home == nullptr ? std::string() : files::fullPath(std::string(home) + "/.local/share");
}

void start(const std::string& program) {
    if (!files::fileExists(program))
        throw RuntimeError(error::fileNotFound, "Datei nicht gefunden: " + program);
}

// Nor is there one that could show a file.
void open(const std::string& file) {
    start(file);
}

void beep() {}

WaitCursor::WaitCursor() = default;
WaitCursor::~WaitCursor() = default;

}  // namespace application

std::string formatNumber(double value, int digits) {
    char buffer[400];  // the longest double has 309 digits before the decimal sign
    std::snprintf(buffer, sizeof buffer, "%.*f", digits, value);
    std::string text = buffer;
    if (const auto point = text.find('.'); point != std::string::npos) text[point] = ',';
    return text;
}

}  // namespace platform
