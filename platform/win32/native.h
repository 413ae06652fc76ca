#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/control.h"
#include "platform/form.h"
#include "platform/win32/handle.h"
#include "platform/win32/messages.h"
#include "platform/win32/roles.h"
#include "platform/win32/wheel.h"

namespace platform {

namespace win32 {
class FormWindow;
}

/// A window of Windows and the control that it serves. Two kinds: windows of a class of our own, which get
/// their object in WM_NCCREATE, and the system's controls, which are subclassed once they are there. Both
/// forget it in WM_NCDESTROY. The tree of parents and children is kept here too, in the order of
/// construction, which is also the order of the Tab key.
struct Control::Native {
    using Message = win32::Message;
    using Handled = win32::Handled;

    Native(Native* parentWindow, std::string controlName);
    virtual ~Native();
    Native(const Native&) = delete;
    Native& operator=(const Native&) = delete;

    /// The object of a window, null for a foreign one.
    static Native* of(HWND window);
    /// The object of a window or of the nearest window that it stands in.
    static Native* holding(HWND window);

    /// A message to this window.
    virtual Handled handle(const Message& m);
    /// The system's own way with a message.
    LRESULT passOn(const Message& m) const;
    LRESULT send(UINT id, WPARAM wParam = 0, LPARAM lParam = 0) const;
    template <class T>
    LRESULT send(UINT id, WPARAM wParam, T* pointer) const {
        return send(id, wParam, reinterpret_cast<LPARAM>(pointer));
    }

    // What the window tells its parent comes back to it here.
    virtual void command(int, int /*code*/) {}
    virtual Handled notify(NMHDR&) { return std::nullopt; }
    virtual void scrolled(int /*code*/, int /*position*/) {}
    /// What it paints its ground with; `behind` lets its parent's ground show through. Null: the system's
    /// way.
    virtual HBRUSH ground(HBRUSH /*behind*/) const { return nullptr; }
    /// Whether panels that lie on it are its pages.
    virtual bool hasPages() const { return false; }
    virtual win32::wheel::Use wheelUse() const { return win32::wheel::Use::turns; }
    /// What it has dropped down disappears, and nothing is chosen.
    virtual void closePopup() {}

    // Keyboard.
    virtual bool tabStop() const;
    virtual KeyUse keyUse() const { return KeyUse::none; }
    /// Its text with the "&" of the access key; a tab control has several.
    virtual std::vector<std::string> mnemonics() const { return {}; }
    /// The access key of that text was pressed.
    virtual void access(std::size_t /*which*/) {}
    /// The window that gets the keys: the edit field inside a combo box.
    virtual HWND keyWindow() const { return window; }

    // Accessibility.
    /// One of win32::role, 0 when it is for the system to say.
    virtual long accessibleRole() const { return 0; }
    std::string accessibleName;  ///< as given by the program

    virtual void move(Rect bounds);
    Rect bounds() const;
    virtual void setVisible(bool on);
    virtual void setEnabled(bool on);
    bool usable() const;  ///< visible and enabled, with all its parents
    bool hasFocus() const;
    void focus();

    HFONT fontHandle() const;
    void setFont(const Font& wanted);
    /// Takes over the window's font, or makes its own for the present resolution; so do its children.
    void refreshFont();
    virtual void fontChanged() {}

    win32::FormWindow& form() const;
    int dpi() const;
    Size clientSize() const;
    std::wstring text() const;
    void setText(const std::string& text) const;

    Control* control = nullptr;  ///< null while the control is being made
    Native* parent;
    std::vector<Native*> children;
    std::string name;
    HWND window = nullptr;
    bool visible = true;
    bool enabled = true;
    std::optional<Font> ownFont;

    /// Changes by the program raise nothing while one of these lives.
    class Quiet {
      public:
        explicit Quiet(Native& native) : native_(native) { ++native_.quiet_; }
        ~Quiet() { --native_.quiet_; }
        Quiet(const Quiet&) = delete;
        Quiet& operator=(const Quiet&) = delete;

      private:
        Native& native_;
    };
    bool quiet() const { return quiet_ > 0; }

    /// Holds back repaints during many small changes, and then asks for one.
    class NoRedraw {
      public:
        explicit NoRedraw(const Native& native);
        ~NoRedraw();
        NoRedraw(const NoRedraw&) = delete;
        NoRedraw& operator=(const NoRedraw&) = delete;

      private:
        const Native& native_;
    };

  protected:
    /// A control of the system's.
    void createControl(const wchar_t* windowClass, DWORD style, DWORD extendedStyle = 0);
    /// A window of a class of our own.
    struct OwnWindow {
        std::string windowClass;
        UINT classStyle = 0;
        DWORD style = 0;
        DWORD extendedStyle = 0;
        Rect bounds{};
        std::string caption{};
        HWND owner = nullptr;
    };
    void createOwn(const OwnWindow& wanted);

  private:
    static LRESULT CALLBACK ownProcedure(HWND window, UINT id, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK controlProcedure(HWND window, UINT id, WPARAM wParam, LPARAM lParam);
    static const wchar_t* registered(const std::string& name, UINT style);
    LRESULT receive(const Message& m) noexcept;
    void attach(HWND created);
    void detach();
    void applyFont() const;

    win32::UniqueFont ownFontHandle_;
    bool isOwn_ = false;
    WNDPROC former_ = nullptr;  // of a control of the system
    int quiet_ = 0;
};

}  // namespace platform
