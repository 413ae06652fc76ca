#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace platform {

class Container;
class Form;

namespace application {

/// Handles what the user and the system do until the form is unloaded. Returns the exit code, 0.
int run(Form& form);

/// Lets pending window messages be processed once.
void doEvents();

/// The same while the program waits for something. What is meant for `only` and what stands in it happens, and
/// the window can be moved, minimised and closed by its frame. Other input is dropped, also that of a screen
/// reader, so that nothing happens later that was meant for what is seen now. Once `only` is to be seen, what
/// had dropped down closes; when it is hidden the focus goes back to where it was. True when Escape was pressed.
bool doEventsFor(Container& only);

/// A press of a mouse button or a key that is being handled now.
struct Press {
    enum class Kind {
        single,
        second,   ///< the second half of a double click
        held,     ///< sent again and again while the key is down
    };
    std::uint32_t time;   ///< when it began, on the clock of inputTime()
    Kind kind;
    bool byMouse = false;
};
/// None when what is being handled does not come from the user.
std::optional<Press> currentPress();

/// The clock that presses are timed by: milliseconds, it wraps around and may go in steps.
std::uint32_t inputTime();
inline constexpr int inputTimeStep = 16;   ///< the largest of these steps, milliseconds

/// Calls a handler at the edge of an event: a RuntimeError (or any other exception) that leaves it becomes
/// a message box with the active form's caption.
void guard(const std::function<void()>& handler);

/// Calls `action` from the message loop, after the messages that are pending now. Dropped when `form` goes.
void post(Form& form, std::function<void()> action);

/// The folder in which programs keep what belongs to the user on this machine, without a backslash at its
/// end. Empty when the system knows none.
std::string userFolder();

/// Starts a program with a normal, focused window and does not wait for it. RuntimeError fileNotFound or
/// fileError.
void start(const std::string& program);

/// Opens a file with the program that the user has for its kind, and does not wait for it. RuntimeError
/// fileNotFound or fileError.
void open(const std::string& file);

void beep();

/// The system's wait pointer as long as it lives; they nest.
class WaitCursor {
  public:
    WaitCursor();
    ~WaitCursor();
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

}  // namespace application

/// A number with `digits` behind the decimal sign, as the user's locale writes it.
std::string formatNumber(double value, int digits);

}  // namespace platform
