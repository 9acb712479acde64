#include "hosts/activex/win32/AboutDialog.h"

#include "hosts/activex/win32/DialogTemplate.h"
#include "hosts/activex/win32/ThisModule.h"
#include "hosts/activex/win32/WinText.h"
#include "hosts/activex/win32/WinTexts.h"

#include <shellapi.h>

#include <string>

namespace velmora {
namespace {

enum Id : WORD { kOk = IDOK, kTitle = 100, kVersion, kLink, kSystem };

struct About {
    std::wstring title;
    std::wstring version;
    std::wstring link;
    LCID locale;
    HFONT linkFont = nullptr;
};

/// The text in the locale's language, with the value in place of "%1".
std::wstring Filled(std::string_view text, const std::wstring& value, LCID locale) {
    constexpr std::wstring_view kPlace = L"%1";
    std::wstring filled = Localized(text, locale);
    if (const auto at = filled.find(kPlace); at != filled.npos) {
        filled.replace(at, kPlace.size(), value);
    }
    return filled;
}

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

void Tell(HWND dialog, const About& about, std::string_view text) {
    MessageBoxW(dialog, Filled(text, about.link, about.locale).c_str(), about.title.c_str(),
                MB_OK | MB_ICONINFORMATION);
}

void StartSystemTool(HWND dialog, const About& about) {
    if (Open(dialog, L"msinfo32.exe")) return;
    Tell(dialog, about, "The system-information tool is not installed on this computer.");
}

void FollowLink(HWND dialog, const About& about) {
    if (Open(dialog, about.link.c_str())) return;
    Tell(dialog, about, "There is no program to open %1");
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
                case kSystem: StartSystemTool(dialog, *about); return TRUE;
                case IDOK:
                case IDCANCEL: EndDialog(dialog, 0); return TRUE;
                default: return FALSE;
            }
        default: return FALSE;
    }
}

}  // namespace

/// Sizes are dialog units: a quarter of a letter's width, an eighth of its height.
void ShowAboutDialog(HWND owner, const AboutText& text, LCID locale) {
    About about{ToWide(text.title), ToWide(text.version), ToWide(text.webLink), locale};
    DialogTemplate dialog(Filled("About %1", about.title, locale), 200, 82, IsRightToLeft(locale));
    dialog.Text(kTitle, about.title, {10, 10, 180, 10});
    dialog.Text(kVersion, Filled("Version %1", about.version, locale), {10, 24, 180, 10});
    dialog.Button(kLink, about.link, {10, 36, 180, 12}, BS_FLAT | BS_LEFT);
    dialog.Button(kOk, L"OK", {68, 60, 50, 14}, BS_DEFPUSHBUTTON);
    dialog.Button(kSystem, Localized("&System Info...", locale), {124, 60, 70, 14}, BS_PUSHBUTTON);
    const HWND top = owner ? GetAncestor(owner, GA_ROOT) : nullptr;
    DialogBoxIndirectParamW(ThisModule(), dialog.Get(), top, &Procedure,
                            reinterpret_cast<LPARAM>(&about));
    DeleteObject(about.linkFont);
}

}  // namespace velmora
