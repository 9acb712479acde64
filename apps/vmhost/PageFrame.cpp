#include "apps/vmhost/PageFrame.h"

#include "apps/vmhost/ChildWindow.h"
#include "apps/vmhost/HostError.h"
#include "hosts/activex/win32/WinText.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

namespace velmora::vmhost {

/// What a page knows of its frame; the frame cuts it off when it closes.
class PageSite : public ComObject<IPropertyPageSite> {
public:
    explicit PageSite(PageFrame& frame) : m_frame(&frame) {}
    void Leave() { m_frame = nullptr; }

    STDMETHODIMP OnStatusChange(DWORD) override {
        if (m_frame) m_frame->StatusChanged();
        return S_OK;
    }
    STDMETHODIMP GetLocaleID(LCID* locale) override {
        if (!locale) return E_POINTER;
        *locale = GetUserDefaultLCID();
        return S_OK;
    }
    STDMETHODIMP GetPageContainer(IUnknown**) override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG*) override { return S_FALSE; }

private:
    PageFrame* m_frame;
};

namespace {

constexpr wchar_t kWindowClass[] = L"VmHostPages";
LONG Margin() { return Scaled(8); }
LONG TabHeight() { return Scaled(24); }
SIZE ButtonSize() { return {Scaled(76), Scaled(24)}; }

void RegisterWindowClass(WNDPROC procedure) {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_BTNFACE + 1));
    windowClass.lpszClassName = kWindowClass;
    RegisterClassW(&windowClass);
}

}  // namespace

PageFrame::PageFrame(HWND owner, IUnknown* control, const std::string& title) : m_owner(owner) {
    ComPtr<ISpecifyPropertyPages> specify;
    CAUUID classIds{};
    Check(control->QueryInterface(IID_PPV_ARGS(specify.GetAddressOf())), "asking for pages");
    Check(specify->GetPages(&classIds), "asking for pages");
    const std::vector<GUID> list(classIds.pElems, classIds.pElems + classIds.cElems);
    CoTaskMemFree(classIds.pElems);
    for (const GUID& classId : list) Load(classId, control);
    BuildWindow(owner, title);
}

PageFrame::~PageFrame() { Close(); }

void PageFrame::Load(const CLSID& classId, IUnknown* control) {
    Loaded loaded;
    // A stock page that the system does not have is left out, as its frame does.
    if (FAILED(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER,
                                IID_PPV_ARGS(loaded.page.GetAddressOf())))) {
        return;
    }
    loaded.site = Adopt(new PageSite(*this));
    Check(loaded.page->SetPageSite(loaded.site.Get()), "placing a page");
    Check(loaded.page->SetObjects(1, &control), "giving a page its object");
    PROPPAGEINFO info{};
    info.cb = sizeof(info);
    Check(loaded.page->GetPageInfo(&info), "asking for a page's size");
    loaded.title = info.pszTitle ? info.pszTitle : L"";
    loaded.size = info.size;
    CoTaskMemFree(info.pszTitle);
    CoTaskMemFree(info.pszDocString);
    CoTaskMemFree(info.pszHelpFile);
    m_pages.push_back(std::move(loaded));
}

void PageFrame::BuildWindow(HWND owner, const std::string& title) {
    RegisterWindowClass(WindowProcedure);
    SIZE page{240, 120};
    for (const Loaded& loaded : m_pages) {
        page.cx = std::max(page.cx, loaded.size.cx);
        page.cy = std::max(page.cy, loaded.size.cy);
    }
    const LONG bottom = Margin() + TabHeight() + page.cy + Margin();
    RECT frame{0, 0, page.cx + 4 * Margin(), bottom + ButtonSize().cy + 2 * Margin()};
    constexpr DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
    AdjustWindowRectEx(&frame, style, FALSE, WS_EX_CONTROLPARENT);
    RECT place{};
    if (owner) GetWindowRect(owner, &place);
    const LONG right = page.cx + 3 * Margin();
    m_window =
        CreateWindowExW(WS_EX_CONTROLPARENT, kWindowClass, ToWide(title).c_str(), style,
                        place.left + 40, place.top + 40, frame.right - frame.left,
                        frame.bottom - frame.top, owner, nullptr, GetModuleHandleW(nullptr), this);
    if (!m_window) throw HostError("opening the pages", HRESULT_FROM_WIN32(GetLastError()));
    m_tabs = MakeChild(m_window, WC_TABCONTROLW, L"", WS_CLIPSIBLINGS | WS_TABSTOP,
                       {Margin(), Margin(), right, bottom}, 1);
    LONG left = right - 3 * (ButtonSize().cx + Margin()) + Margin();
    const auto [width, height] = ButtonSize();
    for (const auto& [text, id] :
         {std::pair(L"OK", IDOK), std::pair(L"Cancel", IDCANCEL), std::pair(L"&Apply", kApply)}) {
        MakeChild(m_window, L"BUTTON", text, WS_TABSTOP,
                  {left, bottom + Margin(), left + width, bottom + Margin() + height}, id);
        left += width + Margin();
    }
    for (std::size_t index = 0; index < m_pages.size(); ++index) {
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = m_pages[index].title.data();
        SendMessageW(m_tabs, TCM_INSERTITEMW, index, reinterpret_cast<LPARAM>(&item));
    }
    StatusChanged();
    ShowPage(0);
    ShowWindow(m_window, SW_SHOW);
}

RECT PageFrame::PageArea() const {
    RECT area{};
    GetWindowRect(m_tabs, &area);
    MapWindowPoints(nullptr, m_window, reinterpret_cast<POINT*>(&area), 2);
    return {area.left + Margin() / 2, area.top + TabHeight(), area.right - Margin() / 2,
            area.bottom - Margin() / 2};
}

void PageFrame::ShowPage(std::size_t index) {
    if (index >= m_pages.size() || index == m_shown) return;
    // A page that is left stays active, so that it keeps what has been edited in it.
    if (m_shown < m_pages.size()) m_pages[m_shown].page->Show(SW_HIDE);
    m_shown = index;
    SendMessageW(m_tabs, TCM_SETCURSEL, index, 0);
    Loaded& loaded = m_pages[index];
    const RECT area = PageArea();
    if (!loaded.active) Check(loaded.page->Activate(m_window, &area, FALSE), "opening a page");
    loaded.active = true;
    loaded.page->Show(SW_SHOW);
    // The page is a younger sibling of the tabs and would lie below them.
    SetWindowPos(m_tabs, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void PageFrame::StatusChanged() {
    if (m_window) EnableWindow(GetDlgItem(m_window, kApply), CanApply());
}

bool PageFrame::CanApply() const {
    return std::any_of(m_pages.begin(), m_pages.end(),
                       [](const Loaded& loaded) { return loaded.page->IsPageDirty() == S_OK; });
}

HRESULT PageFrame::Apply() {
    for (const Loaded& loaded : m_pages) {
        if (loaded.page->IsPageDirty() != S_OK) continue;
        const HRESULT code = loaded.page->Apply();
        if (FAILED(code)) return code;
    }
    StatusChanged();
    return S_OK;
}

void PageFrame::Press(int button) {
    if (button == IDCANCEL) return Close();
    if (button != IDOK && button != kApply) return;
    const HRESULT code = Apply();
    if (SUCCEEDED(code) && button == IDOK) Close();
    if (FAILED(code) && code != E_ABORT) ShowError(code);
}

/// E_ABORT is not for here: the page has spoken for itself.
void PageFrame::ShowError(HRESULT code) const {
    ComPtr<IErrorInfo> error;
    BSTR text = nullptr;
    if (GetErrorInfo(0, error.GetAddressOf()) == S_OK) error->GetDescription(&text);
    const std::wstring shown = text ? text : ToWide(HostError("applying", code).what());
    SysFreeString(text);
    MessageBoxW(m_window, shown.c_str(), L"Velmora form host", MB_OK | MB_ICONWARNING);
}

void PageFrame::Close() {
    if (!m_window) return;
    for (Loaded& loaded : m_pages) {
        loaded.site->Leave();
        if (loaded.active) loaded.page->Deactivate();
        loaded.page->SetObjects(0, nullptr);
        loaded.page->SetPageSite(nullptr);
    }
    m_pages.clear();
    if (m_owner) EnableWindow(m_owner, TRUE);
    DestroyWindow(std::exchange(m_window, nullptr));
}

bool PageFrame::PreTranslate(MSG& message) {
    if (!m_window) return false;
    if (m_shown < m_pages.size() && message.message >= WM_KEYFIRST &&
        message.message <= WM_KEYLAST &&
        m_pages[m_shown].page->TranslateAccelerator(&message) == S_OK) {
        return true;
    }
    return IsDialogMessageW(m_window, &message);
}

void PageFrame::RunMessages() {
    if (m_owner) EnableWindow(m_owner, FALSE);
    MSG message{};
    while (IsOpen() && GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (PreTranslate(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    if (message.message == WM_QUIT) PostQuitMessage(static_cast<int>(message.wParam));
}

LRESULT CALLBACK PageFrame::WindowProcedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_NCCREATE) {
        const auto* creation = reinterpret_cast<CREATESTRUCTW*>(l);
        SetWindowLongPtrW(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    }
    auto* frame = reinterpret_cast<PageFrame*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!frame || !frame->m_window) return DefWindowProcW(window, message, w, l);
    return frame->OnMessage(message, w, l);
}

LRESULT PageFrame::OnMessage(UINT message, WPARAM w, LPARAM l) {
    switch (message) {
        case WM_COMMAND: Press(LOWORD(w)); return 0;
        case WM_CLOSE: Press(IDCANCEL); return 0;
        case WM_NOTIFY: {
            const auto* note = reinterpret_cast<const NMHDR*>(l);
            if (note->code != TCN_SELCHANGE) break;
            ShowPage(static_cast<std::size_t>(SendMessageW(m_tabs, TCM_GETCURSEL, 0, 0)));
            return 0;
        }
        default: break;
    }
    return DefWindowProcW(m_window, message, w, l);
}

}  // namespace velmora::vmhost
