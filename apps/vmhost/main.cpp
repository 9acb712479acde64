#include "apps/vmhost/MainWindow.h"

#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>

#include <cstdlib>
#include <string>

namespace {

struct Options {
    std::wstring save;
    std::wstring load;
    std::wstring shot;
    std::optional<DWORD> milliseconds;
    bool valid = true;
};

Options OptionsOf(int count, wchar_t** words) {
    Options options;
    for (int index = 1; index < count; index += 2) {
        const std::wstring name = words[index];
        if (index + 1 == count) {
            options.valid = false;
        } else if (name == L"--save") {
            options.save = words[index + 1];
        } else if (name == L"--load") {
            options.load = words[index + 1];
        } else if (name == L"--shot") {
            options.shot = words[index + 1];
        } else if (name == L"--seconds") {
            options.milliseconds =
                static_cast<DWORD>(1000 * std::wcstod(words[index + 1], nullptr));
        } else {
            options.valid = false;
        }
    }
    return options;
}

/// Whether every step that was asked for succeeded.
bool Run(const Options& options) {
    using velmora::vmhost::MainWindow;
    MainWindow window;
    bool done = options.load.empty() ? window.AddControls() : window.Load(options.load);
    // What is only looked at or saved needs no user: half a second for the first paint will do.
    const bool unattended = !options.save.empty() || !options.shot.empty();
    if (options.milliseconds || unattended) window.RunMessages(options.milliseconds.value_or(500));
    if (!options.shot.empty()) done = window.Shoot(options.shot) && done;
    if (!options.save.empty()) done = window.Save(options.save) && done;
    if (!options.milliseconds && !unattended) window.RunMessages(std::nullopt);
    return done;
}

}  // namespace

/// vmhost [--load FILE] [--save FILE] [--shot FILE.bmp] [--seconds N]
int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int) {
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    const Options options = OptionsOf(count, words);
    LocalFree(words);
    if (!options.valid) {
        MessageBoxW(nullptr,
                    L"vmhost [--load FILE] [--save FILE] [--shot FILE.bmp] [--seconds N]\n\n"
                    L"A file that ends in .txt is a text form, any other a storage.",
                    L"Velmora form host", MB_ICONINFORMATION);
        return 2;
    }
    INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_LISTVIEW_CLASSES | ICC_TAB_CLASSES};
    InitCommonControlsEx(&classes);
    if (FAILED(OleInitialize(nullptr))) return 3;
    int result = 3;
    try {
        result = Run(options) ? 0 : 1;
    } catch (const std::exception&) {
    }
    OleUninitialize();
    return result;
}
