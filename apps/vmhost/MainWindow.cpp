#include "apps/vmhost/MainWindow.h"

#include "apps/vmhost/ChildWindow.h"
#include "apps/vmhost/FormFile.h"
#include "apps/vmhost/HostError.h"
#include "apps/vmhost/PageFrame.h"
#include "apps/vmhost/Snapshot.h"
#include "hosts/activex/win32/WinText.h"

#include <commctrl.h>
#include <commdlg.h>

#include <cstdlib>
#include <utility>

namespace velmora::vmhost {
namespace {

constexpr wchar_t kWindowClass[] = L"VmHostWindow";
constexpr int kMostLines = 500;
constexpr UINT kRefresh = WM_APP + 1;
// At 96 pixels an inch.
constexpr RECT kFormPlace{8, 40, 488, 368};
constexpr RECT kEventsPlace{8, 376, 488, 560};
constexpr RECT kPropertiesPlace{496, 8, 856, 560};
constexpr RECT kCalendarPlace{16, 16, 266, 216};  // 250 x 200
constexpr RECT kBoxPlace{290, 16, 411, 37};       // 121 x 21

enum Command { kPages = 100, kDesign, kSave, kLoad, kAbout };

POINT PointerOf(DWORD position) {
    return {static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position))};
}

std::wstring AskPath(HWND owner, bool save) {
    wchar_t path[MAX_PATH] = L"";
    OPENFILENAMEW ask{};
    ask.lStructSize = sizeof(ask);
    ask.hwndOwner = owner;
    ask.lpstrFilter = L"Text form\0*.txt\0Storage form\0*.vmform\0";
    ask.lpstrDefExt = L"txt";
    ask.lpstrFile = path;
    ask.nMaxFile = MAX_PATH;
    ask.Flags = OFN_NOCHANGEDIR | (save ? OFN_OVERWRITEPROMPT : OFN_FILEMUSTEXIST);
    const BOOL chosen = save ? GetSaveFileNameW(&ask) : GetOpenFileNameW(&ask);
    return chosen ? path : L"";
}

}  // namespace

MainWindow::MainWindow() {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = WindowProcedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_BTNFACE + 1));
    windowClass.lpszClassName = kWindowClass;
    RegisterClassW(&windowClass);
    RECT frame = Scaled(RECT{0, 0, kPropertiesPlace.right + 8, kEventsPlace.bottom + 8});
    constexpr DWORD style =
        (WS_OVERLAPPEDWINDOW & ~(WS_THICKFRAME | WS_MAXIMIZEBOX)) | WS_CLIPCHILDREN;
    AdjustWindowRectEx(&frame, style, FALSE, WS_EX_CONTROLPARENT);
    m_window = CreateWindowExW(WS_EX_CONTROLPARENT, kWindowClass, L"Velmora form host", style,
                               CW_USEDEFAULT, CW_USEDEFAULT, frame.right - frame.left,
                               frame.bottom - frame.top, nullptr, nullptr,
                               GetModuleHandleW(nullptr), this);
    if (!m_window) throw HostError("opening the window", HRESULT_FROM_WIN32(GetLastError()));
    BuildButtons();
    m_form = Form::Open(m_window, Scaled(kFormPlace), "");
    m_form->onSelected = [this] { ShowSite(m_form->Selected()); };
    m_form->onTabOut = [this](bool forward) {
        SetFocus(GetNextDlgTabItem(m_window, m_form->Window(), !forward));
        return true;
    };
    m_events = MakeChild(m_window, L"LISTBOX", L"",
                         WS_BORDER | WS_VSCROLL | LBS_NOINTEGRALHEIGHT | LBS_NOSEL,
                         Scaled(kEventsPlace), 0);
    m_properties = std::make_unique<PropertyPanel>(m_window, Scaled(kPropertiesPlace));
    ShowWindow(m_window, SW_SHOW);
}

MainWindow::~MainWindow() {
    m_form->Close();
    if (m_window) DestroyWindow(m_window);
}

void MainWindow::BuildButtons() {
    LONG left = kFormPlace.left;
    const auto add = [&](const wchar_t* text, int id, DWORD style) {
        constexpr LONG width = 90;
        MakeChild(m_window, L"BUTTON", text, WS_TABSTOP | style,
                  Scaled(RECT{left, 8, left + width, 32}), id);
        left += width + 6;
    };
    add(L"&Properties...", kPages, 0);
    add(L"&Design mode", kDesign, BS_AUTOCHECKBOX | BS_PUSHLIKE);
    add(L"&Save...", kSave, 0);
    add(L"&Load...", kLoad, 0);
    add(L"&About...", kAbout, 0);
}

bool MainWindow::AddControls() {
    const bool added = Guarded([this] {
        m_form->Add("VelmoraCalendar.VmCalendar", "VmCalendar1", Scaled(kCalendarPlace));
        m_form->Add("VelmoraCalendar.VmCalDropDown", "VmCalDropDown1", Scaled(kBoxPlace));
    });
    FollowAll();
    return added;
}

void MainWindow::FollowAll() {
    for (const ComPtr<ControlSite>& site : m_form->Sites()) Follow(*site.Get());
    ShowSite(m_form->Sites().empty() ? nullptr : m_form->Sites().front().Get());
}

void MainWindow::Follow(ControlSite& site) {
    site.onEvent = [this, &site](Event& event) {
        Log(site.Name() + '.' + event.Text());
        const bool isPassing = event.Name() == "MouseMove" || event.Name().starts_with("OLE");
        if (m_shown.Get() != &site && !isPassing) ShowSite(&site);
        ServeDrag(site.Control(), event);
    };
    site.onChanged = [this, &site](const std::string&) {
        if (m_shown.Get() != &site || m_refreshPending) return;
        m_refreshPending = true;  // once for a burst of changes, and never inside one
        PostMessageW(m_window, kRefresh, 0, 0);
    };
}

/// The user drags a control's date out with the left button, and another's into it where its
/// `OLEDropMode` is manual.
void MainWindow::ServeDrag(IUnknown* control, Event& event) {
    constexpr int kText = 1;
    const POINT pointer = PointerOf(GetMessagePos());
    if (event.Name() == "MouseDown") {
        m_press = pointer;
    } else if (event.Name() == "MouseMove" && event.Argument(0).Number() == MK_LBUTTON && m_press) {
        const bool dragged = std::abs(pointer.x - m_press->x) > GetSystemMetrics(SM_CXDRAG) ||
                             std::abs(pointer.y - m_press->y) > GetSystemMetrics(SM_CYDRAG);
        if (!dragged) return;
        m_press.reset();
        CallMethod(control, "OleDrag");
    } else if (event.Name() == "OLEStartDrag") {
        const Value date = GetProperty(control, "DateValue").result;
        CallMethod(event.Argument(0).Object(), "SetData", {date.As(VT_BSTR), Value(kText)});
        event.Change(1, Value(static_cast<long>(DROPEFFECT_COPY)));
    } else if (event.Name() == "OLEDragDrop") {
        const Outcome got = CallMethod(event.Argument(0).Object(), "GetData", {Value(kText)});
        if (got.Succeeded()) PutProperty(control, "DateValue", got.result);
    }
}

void MainWindow::Log(const std::string& line) {
    if (std::exchange(m_lastLine, line) == line) return;  // a drag tells the same all the time
    if (SendMessageW(m_events, LB_GETCOUNT, 0, 0) >= kMostLines) {
        SendMessageW(m_events, LB_DELETESTRING, 0, 0);
    }
    const std::wstring wide = ToWide(line);
    const LRESULT row =
        SendMessageW(m_events, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(wide.c_str()));
    SendMessageW(m_events, LB_SETTOPINDEX, static_cast<WPARAM>(row), 0);
}

void MainWindow::ShowSite(ControlSite* site) {
    m_shown = site;
    m_properties->Show(site ? site->Control() : nullptr);
}

bool MainWindow::Guarded(const std::function<void()>& step) {
    try {
        step();
        return true;
    } catch (const std::exception& error) {
        Log(std::string("! ") + error.what());
        MessageBeep(MB_ICONWARNING);
        return false;
    }
}

bool MainWindow::Save(const std::wstring& path) {
    const Medium medium = path.ends_with(L".txt") ? Medium::Bag : Medium::Storage;
    return Guarded([&] { SaveForm(*m_form.Get(), path, medium); });
}

bool MainWindow::Load(const std::wstring& path) {
    ShowSite(nullptr);
    const bool loaded = Guarded([&] { LoadForm(*m_form.Get(), path); });
    FollowAll();
    return loaded;
}

bool MainWindow::Shoot(const std::wstring& path) const {
    UpdateWindow(m_window);
    return SaveBitmap(Snapshot(m_window), path);
}

void MainWindow::ShowPages() {
    const ComPtr<ControlSite> site = m_shown;
    if (!site || !site->Control()) return;
    Guarded(
        [&] { PageFrame(m_window, site->Control(), site->Name() + " properties").RunMessages(); });
    m_properties->Refresh();
}

void MainWindow::ShowAbout() {
    if (m_shown) CallMethod(m_shown->Control(), "AboutBox");
}

void MainWindow::RunMessages(std::optional<DWORD> milliseconds) {
    const ULONGLONG end = GetTickCount64() + milliseconds.value_or(0);
    while (m_window && (!milliseconds || GetTickCount64() < end)) {
        MSG message{};
        if (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            MsgWaitForMultipleObjects(0, nullptr, FALSE, milliseconds ? 10 : INFINITE, QS_ALLINPUT);
            continue;
        }
        if (m_form->PreTranslate(message)) continue;
        const bool onForm = IsChild(m_form->Window(), message.hwnd);
        if (!onForm && IsDialogMessageW(m_window, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

LRESULT CALLBACK MainWindow::WindowProcedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_NCCREATE) {
        const auto* creation = reinterpret_cast<CREATESTRUCTW*>(l);
        SetWindowLongPtrW(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    }
    auto* self = reinterpret_cast<MainWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self || !self->m_window) return DefWindowProcW(window, message, w, l);
    return self->OnMessage(message, w, l);
}

LRESULT MainWindow::OnMessage(UINT message, WPARAM w, LPARAM l) {
    switch (message) {
        case WM_COMMAND:
            if (m_properties && !m_properties->OnCommand(LOWORD(w))) OnCommand(LOWORD(w));
            return 0;
        case WM_NOTIFY:
            if (m_properties) m_properties->OnNotify(*reinterpret_cast<const NMHDR*>(l));
            return 0;
        case kRefresh:
            m_refreshPending = false;
            m_properties->Refresh();
            return 0;
        case WM_CLOSE:
            m_shown.Reset();
            m_form->Close();
            DestroyWindow(m_window);
            return 0;
        case WM_DESTROY: m_window = nullptr; return 0;
        default: return DefWindowProcW(m_window, message, w, l);
    }
}

void MainWindow::OnCommand(int id) {
    switch (id) {
        case kPages: return ShowPages();
        case kDesign:
            m_form->SetUserMode(IsDlgButtonChecked(m_window, kDesign) != BST_CHECKED);
            return m_properties->Refresh();
        case kSave:
        case kLoad:
            if (const std::wstring path = AskPath(m_window, id == kSave); !path.empty()) {
                id == kSave ? Save(path) : Load(path);
            }
            return;
        case kAbout: return ShowAbout();
        default: return;
    }
}

}  // namespace velmora::vmhost
