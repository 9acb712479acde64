#include "hosts/activex/pages/PropertyPageObject.h"

#include "hosts/activex/control/ControlClass.h"
#include "hosts/activex/win32/WinText.h"
#include "proppages/PageDefinitions.h"
#include "tests/activex/component/ComponentTest.h"
#include "tests/support/PageScript.h"

namespace velmora {
namespace {

constexpr int kFirstField = 100;  // identifiers of a page's controls, by row
enum Page : std::size_t { kGeneral, kDropDown, kDay, kLook };
const CLSID* const kPages[] = {&kGeneralPage, &kDropDownPage, &kDayPage, &kLookPage};

std::string g_messages;

/// Notes and closes the message that a page shows.
void CALLBACK CloseMessage(HWND, UINT, UINT_PTR, DWORD) {
    const HWND box = FindWindowW(L"#32770", L"VelmoraCalendar");
    if (!box || !IsWindowVisible(box)) return;
    const HWND icon = FindWindowExW(box, nullptr, L"Static", nullptr);
    wchar_t text[200] = L"";
    GetWindowTextW(FindWindowExW(box, icon, L"Static", nullptr), text, 200);
    g_messages += (g_messages.empty() ? "" : "|") + ToUtf8(text);
    SendMessageW(box, WM_COMMAND, IDOK, 0);
}

/// Chooses 0x030201 in the system's dialog for colours, and strikes out in that for fonts.
void CALLBACK Choose(HWND frame, UINT, UINT_PTR timer, DWORD) {
    constexpr int kRed = 706, kStrikeOut = 0x410;
    const HWND dialog = GetLastActivePopup(frame);
    if (dialog == frame) return;
    KillTimer(frame, timer);
    for (const int i : {0, 1, 2}) SetDlgItemInt(dialog, kRed + i, static_cast<UINT>(i + 1), FALSE);
    SendDlgItemMessageW(dialog, kStrikeOut, BM_CLICK, 0, 0);
    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
}

/// The foreign object as a client has it: members by name, without type information.
class ForeignDispatch final : public ComObject<IDispatch> {
public:
    explicit ForeignDispatch(test::ForeignObject& object) : m_object(object) {}

    std::function<void()> onWrite = [] {};

    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        const auto found = m_object.values.find(ToUtf8(names[0]));
        if (found == m_object.values.end()) return DISP_E_UNKNOWNNAME;
        ids[0] = static_cast<DISPID>(std::distance(m_object.values.begin(), found));
        return S_OK;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* exception, UINT*) override {
        const std::string name = std::next(m_object.values.begin(), id)->first;
        if (flags & DISPATCH_PROPERTYGET) {
            ToComVariant(m_object.GetMember(name), *m_bridge, *result);
            return S_OK;
        }
        try {
            m_object.LetMember(name, FromComVariant(*arguments->rgvarg, *m_bridge));
        } catch (const AutomationError& error) {
            *exception = {};
            exception->scode = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, 380);
            exception->bstrDescription = ToBstr(error.what());
            return DISP_E_EXCEPTION;
        }
        onWrite();
        return S_OK;
    }

private:
    void* Find(REFIID iid) override {
        return iid == IID_IDispatch ? static_cast<IDispatch*>(this) : ComObject::Find(iid);
    }

    test::ForeignObject& m_object;
    std::shared_ptr<ObjectBridge> m_bridge = std::make_shared<ObjectBridge>();
};

/// The frame around a page.
class FrameSite final : public ComObject<IPropertyPageSite> {
public:
    LCID locale = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);
    std::vector<DWORD> status;
    int keys = 0;  // offered by the page
    std::function<void()> onStatus = [] {};

    STDMETHODIMP OnStatusChange(DWORD flags) override {
        status.push_back(flags);
        onStatus();
        return S_OK;
    }
    STDMETHODIMP GetLocaleID(LCID* id) override {
        *id = locale;
        return S_OK;
    }
    STDMETHODIMP GetPageContainer(IUnknown**) override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG*) override {
        ++keys;
        return S_OK;
    }
};

/// The component's pages in one frame, on top of each other.
class WinPages final : public test::PagePlayer {
public:
    WinPages() {
        for (std::size_t i = 0; i < std::size(kPages); ++i) {
            EXPECT_EQ(CreatePropertyPage(*kPages[i], IID_PPV_ARGS(&pages[i])), S_OK);
            EXPECT_EQ(pages[i]->SetPageSite(site.Get()), S_OK);
            Activate(i);
        }
    }
    ~WinPages() override {
        for (const auto& page : pages) {
            if (page) page->SetPageSite(nullptr);
        }
        DestroyWindow(frame);
    }

    void Select(const std::string& name) override {
        if (name != "same") object = Make(name);
        IUnknown* selected[] = {object.Get(), site.Get()};  // the second is no object
        site->status.clear();
        for (const auto& page : pages) EXPECT_EQ(page->SetObjects(object ? 2 : 0, selected), S_OK);
        EXPECT_EQ(std::count(site->status.begin(), site->status.end(), PROPPAGESTATUS_DIRTY), 0);
    }
    void Enter(const std::string& name, const std::string& input) override {
        const HWND field = Field(name);
        const std::wstring text = ToWide(input);
        if (name.starts_with("txt")) SetWindowTextW(field, text.c_str());
        if (name.starts_with("chk") && Shown(name) != input) SendMessageW(field, BM_CLICK, 0, 0);
        if (!name.starts_with("cbo")) return;
        const LRESULT item = SendMessageW(field, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                          reinterpret_cast<LPARAM>(text.c_str()));
        SendMessageW(field, CB_SETCURSEL, static_cast<WPARAM>(item), 0);
        SendMessageW(GetParent(field), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(field), CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(field));
    }
    std::string Shown(const std::string& name) override {
        const HWND field = Field(name);
        wchar_t text[100] = L"";
        GetWindowTextW(field, text, 100);
        std::string shown = ToUtf8(text);
        if (name.starts_with("chk")) {
            shown = SendMessageW(field, BM_GETCHECK, 0, 0) == BST_CHECKED ? "true" : "false";
        }
        const HDC context = GetDC(field);
        SendMessageW(GetParent(field), WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(context),
                     reinterpret_cast<LPARAM>(field));
        if (GetTextColor(context) == RGB(255, 0, 0)) shown += " red";
        ReleaseDC(field, context);
        return shown + (IsWindowEnabled(field) ? "" : " disabled");
    }
    bool IsChanged() override {
        return std::ranges::any_of(pages, [](auto& p) { return p->IsPageDirty() == S_OK; });
    }
    std::string Apply() override {
        g_messages.clear();
        const UINT_PTR timer = SetTimer(nullptr, 0, 10, CloseMessage);
        for (const auto& page : pages) {
            const HRESULT result = page->IsPageDirty() == S_OK ? page->Apply() : S_OK;
            if (FAILED(result) && result != E_ABORT) {
                ComPtr<IErrorInfo> info;
                GetErrorInfo(0, &info);
                BSTR text = nullptr;
                if (info) info->GetDescription(&text);
                g_messages += (g_messages.empty() ? "" : "|") + FromBstr(text);
                SysFreeString(text);
            }
        }
        KillTimer(nullptr, timer);
        return g_messages;
    }
    Variant Property(const std::string& name) override {
        return ComAutomation(*object.Get(), *std::make_shared<ObjectBridge>()).GetMember(name);
    }

    HWND Field(const std::string& name) const {
        const PageDefinition* const definitions[] = {&kGeneralPP, &kDropDownPP, &kDayPP, &kLookPP};
        for (std::size_t i = 0; i < std::size(kPages); ++i) {
            int id = kFirstField;
            for (const FieldDefinition& field : definitions[i]->fields) {
                if (field.name == name) return GetDlgItem(dialogs[i], id);
                ++id;
            }
        }
        return nullptr;
    }
    void Activate(std::size_t index) {
        const RECT place{0, 0, 400, 400};
        EXPECT_EQ(pages[index]->Activate(frame, &place, FALSE), S_OK);
        EXPECT_EQ(pages[index]->Show(SW_SHOW), S_OK);
        dialogs[index] = GetWindow(frame, GW_CHILD);
        while (HWND next = GetWindow(dialogs[index], GW_HWNDNEXT)) dialogs[index] = next;
    }

    HWND frame = CreateWindowExW(0, L"STATIC", L"Frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10,
                                 500, 500, nullptr, nullptr, nullptr, nullptr);
    HWND dialogs[std::size(kPages)] = {};
    ComPtr<FrameSite> site = Adopt(new FrameSite);
    ComPtr<IPropertyPage2> pages[std::size(kPages)];
    ComPtr<IDispatch> object;

private:
    ComPtr<IDispatch> Make(const std::string& name) {
        if (name == "foreign") return Adopt<IDispatch>(new ForeignDispatch(foreign));
        if (name == "nothing") return nullptr;
        ComPtr<IDispatch> control;
        if (name == "calendar") control = NewCalendar();
        if (name == "box") control = NewBox();
        vmhost::PutProperty(control.Get(), "DateValue", vmhost::Value::Date(45427.5));
        return control;
    }
};

class PropertyPages : public testing::Test {
protected:
    ~PropertyPages() override { EXPECT_EQ(ModuleLock::Count(), 0); }
};

TEST_F(PropertyPages, FollowTheScript) {
    WinPages pages;
    test::PlayPages(pages);
}

TEST_F(PropertyPages, EditsOutliveDeactivationAndDatesAreOfTheSitesLocale) {
    WinPages pages;
    pages.Select("foreign");
    IPropertyPage2& page = *pages.pages[kGeneral].Get();
    page.SetPageSite(nullptr);
    pages.site->locale = MAKELCID(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN), SORT_DEFAULT);
    page.SetPageSite(pages.site.Get());
    pages.Enter("txtDateMin", "2.3.2024");
    EXPECT_EQ(pages.site->status, std::vector<DWORD>{PROPPAGESTATUS_DIRTY});
    EXPECT_EQ(page.Deactivate(), S_OK);
    EXPECT_EQ(page.IsPageDirty(), S_OK);
    pages.Activate(kGeneral);
    EXPECT_EQ(pages.Shown("txtDateMin"), "2.3.2024");
    EXPECT_EQ(page.Deactivate(), S_OK);
    pages.Apply();
    EXPECT_EQ(pages.Property("DateMin"), Variant(Date(45353)));

    ComPtr<IPropertyPage2> german;
    EXPECT_EQ(CreatePropertyPage(*kPages[kGeneral], IID_PPV_ARGS(&german)), S_OK);
    german->SetPageSite(pages.site.Get());
    PROPPAGEINFO info{};
    info.cb = sizeof info;
    EXPECT_EQ(german->GetPageInfo(&info), S_OK);
    EXPECT_EQ(std::wstring_view(info.pszTitle), L"Allgemein");
    CoTaskMemFree(info.pszTitle);
    CoTaskMemFree(info.pszDocString);
    std::swap(pages.pages[kGeneral], german);
    pages.Activate(kGeneral);
    pages.Select("calendar");
    EXPECT_EQ(pages.Shown("cboAppearance"), "Räumlich");
}

TEST_F(PropertyPages, CallsOutOfOrderAreRefused) {
    WinPages pages;
    IPropertyPage2& page = *pages.pages[kDay].Get();
    const RECT place{0, 0, 100, 100};
    EXPECT_EQ(page.Apply(), E_UNEXPECTED);
    EXPECT_EQ(page.EditProperty(1), E_UNEXPECTED);
    EXPECT_EQ(page.SetPageSite(pages.site.Get()), E_UNEXPECTED);
    EXPECT_EQ(page.Activate(pages.frame, &place, FALSE), E_UNEXPECTED);
    DestroyWindow(pages.frame);
    EXPECT_EQ(page.Deactivate(), E_UNEXPECTED);
    EXPECT_EQ(page.Show(SW_SHOW), E_UNEXPECTED);
    EXPECT_EQ(page.Activate(nullptr, &place, FALSE), E_INVALIDARG);
}

TEST_F(PropertyPages, ColorsAndFontsAreChosenInTheSystemsDialogs) {
    WinPages pages;
    pages.Select("box");
    const auto before = vmhost::GetProperty(pages.object.Get(), "ComboFont").result;
    vmhost::PutProperty(before.Object(), "Name", "Tahoma");
    for (const char* field : {"cmdTodayBackColor", "cmdComboFont"}) {
        SetTimer(pages.frame, 1, 10, Choose);
        SendMessageW(pages.Field(field), BM_CLICK, 0, 0);
        EXPECT_TRUE(pages.IsChanged());
        EXPECT_EQ(pages.Apply(), "");
    }
    EXPECT_EQ(pages.Shown("cmdTodayBackColor"), "&H030201");
    EXPECT_EQ(pages.Property("TodayBackColor"), Variant(0x030201));
    EXPECT_EQ(pages.Property("MonthBackColor"), Variant(0x8000000Fu));
    const auto font = ToObject<StdFont>(pages.Property("ComboFont"));
    EXPECT_EQ(std::tuple(font->name, font->strikethrough), std::tuple("Tahoma", true));
}

/// Frame or object take everything away in the middle of a call.
TEST_F(PropertyPages, SurviveTheEndInsideOfACall) {
    for (const bool isApplied : {false, true}) {
        WinPages pages;
        auto& page = pages.pages[kGeneral];
        const auto end = [&] {
            const ComPtr<IPropertyPage2> last = std::move(page);
            if (!last) return;
            last->SetObjects(0, nullptr);
            last->Deactivate();
            last->SetPageSite(nullptr);
        };
        pages.Select("foreign");
        auto& foreign = *static_cast<ForeignDispatch*>(pages.object.Get());
        (isApplied ? foreign.onWrite : pages.site->onStatus) = end;
        pages.Enter("cboMonthDisplay", "VmMonthFullName");
        if (isApplied) {
            EXPECT_HRESULT_FAILED(page.Get()->Apply());
        }
        EXPECT_FALSE(page);
        EXPECT_EQ(pages.foreign.writes, isApplied ? "ShowWeekend ShowWeekend MonthDisplay" : "");
    }
}

TEST_F(PropertyPages, TheFocusWalksTheFieldsOrIsBroughtToOne) {
    WinPages pages;
    pages.Select("box");
    IPropertyPage2& page = *pages.pages[kDropDown].Get();
    const auto press = [&](WPARAM key) {
        MSG message{GetFocus(), WM_KEYDOWN, key, 0, 0, {}};
        return page.TranslateAccelerator(&message);
    };
    SetFocus(pages.frame);
    EXPECT_EQ(press(VK_RETURN), S_OK);  // the frame's
    EXPECT_EQ(pages.site->keys, 1);
    for (const char* const field : {"chkEnabled", "txtDropDownWidth", "txtDropDownHeight"}) {
        EXPECT_EQ(press(VK_TAB), S_OK);
        EXPECT_EQ(GetFocus(), pages.Field(field));
    }
    EXPECT_EQ(press(VK_TAB), S_OK);
    EXPECT_EQ(pages.site->keys, 2) << "at the end the frame's again";

    std::wstring name = L"DropDownWidth";
    LPOLESTR names = name.data();
    DISPID width = DISPID_UNKNOWN;
    pages.object->GetIDsOfNames(IID_NULL, &names, 1, 0, &width);
    EXPECT_EQ(page.EditProperty(width), S_OK);
    EXPECT_EQ(GetFocus(), pages.Field("txtDropDownWidth"));
    EXPECT_EQ(page.Deactivate(), S_OK);
    EXPECT_EQ(page.EditProperty(width), S_OK);
    pages.Activate(kDropDown);
    EXPECT_EQ(GetFocus(), pages.Field("txtDropDownWidth"));
    EXPECT_EQ(page.EditProperty(30000), E_INVALIDARG);
}

}  // namespace
}  // namespace velmora
