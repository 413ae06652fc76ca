// The suite's script kernel beside the program, in the place of the one built in.
#include <gtest/gtest.h>

#include "kernel/script_kernel.h"
#include "platform/files.h"
#include "platform/form.h"
#include "platform/text.h"
#include "platform/win32/handle.h"
#include "platform/win32/native.h"
#include "platform/win32/wide.h"
#include "tests/support/temp_folder.h"

namespace {

using namespace platform;

class KernelLibrary : public testing::Test {
  protected:
    /// A program directory with that library in it.
    std::string programDirectory(const std::string& name, const char* library) {
        const std::string directory = folder_.file(name);
        files::createDirectories(directory);
        ::CopyFileW(wide(files::fullPath(library)).c_str(), wide(directory + "\\kvKernel.DLL").c_str(),
                    FALSE);
        return directory;
    }
    std::unique_ptr<kernel::ScriptKernel> make(const std::string& directory) {
        return kernel::makeKernel(directory, txtOut_,
                                  [this](const std::string& line) { lines_.push_back(line); });
    }
    /// What the library received, line by line.
    static std::string received(const std::string& directory) {
        const std::string bytes = files::read(directory + "\\kvKernel.log");
        return text::fromUtf16(
            {reinterpret_cast<const char16_t*>(bytes.data()), bytes.size() / sizeof(char16_t)});
    }

    support::TempFolder folder_;
    Form form_{"frmKernel", "Kern", {}};
    TextBox txtOut_{form_, "txtOut", TextBox::Style::output};
    std::vector<std::string> lines_;
    kernel::Parameters parameters_;
};

TEST_F(KernelLibrary, ReceivesWhatItNeedsAndIsReleased) {
    const std::string directory = programDirectory("Ordner für 日本", KERNEL_DLL);
    const int handles = win32::liveHandles();
    parameters_.set("Parameter0", "0", "Rfile://C:\\Bilder\\Größe 😀.jpg");
    parameters_.set("Parameter1", "0", "-2147483648");
    parameters_.set("Parameter1", "4", "12");
    {
        const auto kernel = make(directory);
        EXPECT_TRUE(kernel->run(directory + "\\Scripts\\Extract.kvr", parameters_));
        parameters_.set("parameter1", "4", "13");
        EXPECT_FALSE(kernel->run(directory + "\\Scripts\\Verweigert.kvr", parameters_));
        parameters_.set("Verweigert", "0", "1");
        EXPECT_FALSE(kernel->run(directory + "\\Scripts\\Extract.kvr", parameters_));
    }
    const auto parameters = [](const char* dX) {
        return "Parameter0[0]=Rfile://C:\\Bilder\\Größe 😀.jpg\nParameter1[0]=-2147483648\nParameter1[4]=" +
               std::string(dX) + "\n";
    };
    EXPECT_EQ(received(directory),
              "Create " + std::to_string(reinterpret_cast<INT_PTR>(txtOut_.native().window)) + " " +
                  directory + "\n" + parameters("12") + "Run " + directory + "\\Scripts\\Extract.kvr\n" +
                  parameters("13") + "Run " + directory + "\\Scripts\\Verweigert.kvr\n" + parameters("13") +
                  "Verweigert[0]=1\nDestroy\n");
    EXPECT_EQ(txtOut_.text(), "Skript gelaufen\r\nSkript gelaufen\r\n");
    EXPECT_EQ(lines_, std::vector<std::string>{"kvKernel.DLL nimmt Verweigert[0] nicht an."});
    EXPECT_EQ(win32::liveHandles(), handles);
    EXPECT_EQ(::GetModuleHandleW(L"kvKernel.DLL"), nullptr);
}

TEST_F(KernelLibrary, GivesWayToTheBuiltInKernelWhenItCannotBeUsed) {
    folder_.write("kaputt\\kvKernel.DLL", "keine Bibliothek");
    const std::string instead = " Der eingebaute Kern führt die Skripte aus.";
    const std::string begin = "kvKernel.DLL kann nicht benutzt werden: ";
    const std::pair<std::string, std::string> cases[] = {
        {folder_.file("leer"), ""},
        {folder_.file("kaputt"), begin},  // and the system's reason
        {programDirectory("unvollständig", KERNEL_DLL_INCOMPLETE),
         begin + "der Einsprungpunkt kvKernelRun fehlt." + instead},
        {programDirectory("Verweigert", KERNEL_DLL),
         begin + "kvKernelCreate lieferte keinen Kern." + instead},
    };
    for (const auto& [directory, expected] : cases) {
        const auto kernel = make(directory);
        EXPECT_FALSE(kernel->run(folder_.file("fehlt.kvr"), parameters_));
        ASSERT_EQ(lines_.size(), expected.empty() ? 1u : 2u) << directory;
        EXPECT_TRUE(lines_[0].starts_with(expected)) << lines_[0];
        EXPECT_TRUE(lines_.back().starts_with("Fehler in fehlt.kvr: ")) << lines_.back();
        lines_.clear();
        EXPECT_EQ(::GetModuleHandleW(L"kvKernel.DLL"), nullptr) << directory;
    }
}

}  // namespace
