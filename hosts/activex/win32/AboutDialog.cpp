#include "hosts/activex/win32/AboutDialog.h"

#include "hosts/activex/win32/DialogTemplate.h"
#include "hosts/activex/win32/ThisModule.h"
#include "hosts/activex/win32/WinText.h"

#include <shellapi.h>

#include <string>

namespace velmora {
namespace {

enum Id : WORD { kOk = IDOK, kTitle = 100, kVersion, kLink, kSystem };

struct About {
    std::wstring title;
    std::wstring version;
    std::wstring link;
    HFONT linkFont = nullptr;
};

bool Open(HWND owner, const wchar_t* what) {
    SHELLEXECUTEINFOW execution{};
    execution.cbSize = sizeof execution;
    execution.fMask = SEE_MASK_FLAG_NO_UI;
    execution.hwnd = owner;
    execution.lpVerb = L"open";
    execution.lpFile = what;
    execution.nShow = SW_SHOWNORMAL;
    return ShellExecuteExW(&execution) != FALSE;
}

void StartSystemTool(HWND dialog) {
    if (Open(dialog, L"msinfo32.exe")) return;
    MessageBoxW(dialog, L"The system-information tool is not installed on this computer.",
                L"System Information", MB_OK | MB_ICONINFORMATION);
}

void FollowLink(HWND dialog, const About& about) {
    if (Open(dialog, about.link.c_str())) return;
    MessageBoxW(dialog, (L"There is no program to open " + about.link).c_str(), about.title.c_str(),
                MB_OK | MB_ICONINFORMATION);
}

void Prepare(HWND dialog, About& about) {
    LOGFONTW font{};
    const auto own = reinterpret_cast<HFONT>(SendMessageW(dialog, WM_GETFONT, 0, 0));
    GetObjectW(own, sizeof font, &font);
    font.lfUnderline = 1;
    about.linkFont = CreateFontIndirectW(&font);
    SendDlgItemMessageW(dialog, kLink, WM_SETFONT, reinterpret_cast<WPARAM>(about.linkFont), FALSE);
}

INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, DWLP_USER, l);
        Prepare(dialog, *reinterpret_cast<About*>(l));
        return TRUE;
    }
    const auto* const about = reinterpret_cast<About*>(GetWindowLongPtrW(dialog, DWLP_USER));
    switch (message) {
        case WM_SETCURSOR:
            if (GetDlgCtrlID(reinterpret_cast<HWND>(w)) != kLink) return FALSE;
            SetCursor(LoadCursorW(nullptr, IDC_HAND));
            SetWindowLongPtrW(dialog, DWLP_MSGRESULT, TRUE);
            return TRUE;
        case WM_COMMAND:
            switch (LOWORD(w)) {
                case kLink: FollowLink(dialog, *about); return TRUE;
                case kSystem: StartSystemTool(dialog); return TRUE;
                case IDOK:
                case IDCANCEL: EndDialog(dialog, 0); return TRUE;
                default: return FALSE;
            }
        default: return FALSE;
    }
}

}  // namespace

/// Sizes are dialog units: a quarter of a letter's width, an eighth of its height.
void ShowAboutDialog(HWND owner, const AboutText& text) {
    About about{ToWide(text.title), ToWide(text.version), ToWide(text.webLink)};
    DialogTemplate dialog(L"About " + about.title, 200, 82);
    dialog.Text(kTitle, about.title, {10, 10, 180, 10});
    dialog.Text(kVersion, L"Version " + about.version, {10, 24, 180, 10});
    dialog.Button(kLink, about.link, {10, 36, 180, 12}, BS_FLAT | BS_LEFT);
    dialog.Button(kOk, L"OK", {84, 60, 50, 14}, BS_DEFPUSHBUTTON);
    dialog.Button(kSystem, L"&System Info...", {140, 60, 54, 14}, BS_PUSHBUTTON);
    const HWND top = owner ? GetAncestor(owner, GA_ROOT) : nullptr;
    DialogBoxIndirectParamW(ThisModule(), dialog.Get(), top, &Procedure,
                            reinterpret_cast<LPARAM>(&about));
    DeleteObject(about.linkFont);
}

}  // namespace velmora
