#include "hosts/activex/pages/PropertyPageObject.h"

#include "PageFakes.h"
#include "hosts/activex/control/ControlClass.h"
#include "hosts/activex/pages/PageFields.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using Microsoft::WRL::ComPtr;

constexpr double kMarch15 = 45366;  // of 2024
constexpr int kFirstField = 100;    // identifiers of the dialog's controls, by row

// Rows of the pages.
enum General { kAppearance, kWeekend = 2, kDate = 10, kFormat };
enum DropDown { kEnabled, kWidth, kHeight };
enum Day { kFirstDay, kDayAppearance };

template <class T>
ComPtr<T> New() {
    return Adopt(new T);
}

class PropertyPages : public testing::Test {
protected:
    ComPtr<FakeObject> object = New<FakeObject>();
    ComPtr<FakeSite> site = New<FakeSite>();
    ComPtr<IPropertyPage2> page;
    HWND frame = nullptr;

    void SetUp() override {
        OleInitialize(nullptr);
        frame = CreateWindowExW(0, L"STATIC", L"Frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10,
                                500, 500, nullptr, nullptr, nullptr, nullptr);
        ASSERT_TRUE(frame);
        for (const wchar_t* const name :
             {L"DropDownAppearance", L"WeekDayDisplay", L"ShowWeekend", L"WeekDayCaptionAlignment",
              L"WeekDayAppearance", L"MonthDisplay", L"MonthAppearance", L"MonthYearSelStyle",
              L"DayAppearance", L"DayNumberAlignment", L"DayCaptionAlignment",
              L"DayPictureAlignment"}) {
            object->Set(name, 1);
        }
        object->Set(L"FirstDayOfWeek", 2);
        object->Set(L"Enabled", -1);
        object->Set(L"DropDownWidth", 120);
        object->Set(L"DropDownHeight", 90);
        object->SetDate(L"DateMin", kMarch15 - 1000);
        object->SetDate(L"DateMax", kMarch15 + 1000);
        object->SetDate(L"DateValue", kMarch15);
        object->SetText(L"DateFormat", L"d mmm yyyy");
    }

    void TearDown() override {
        if (page) page->SetPageSite(nullptr);
        page.Reset();
        object.Reset();
        site.Reset();
        DestroyWindow(frame);
        EXPECT_EQ(ModuleLock::Count(), 0);
        OleUninitialize();
    }

    void Open(REFCLSID classId) {
        page.Reset();
        ASSERT_EQ(CreatePropertyPage(classId, IID_PPV_ARGS(&page)), S_OK);
        ASSERT_EQ(page->SetPageSite(site.Get()), S_OK);
        Select(object.Get());
        Activate();
    }
    void Activate() {
        PROPPAGEINFO info{};
        info.cb = sizeof info;
        ASSERT_EQ(page->GetPageInfo(&info), S_OK);
        CoTaskMemFree(info.pszTitle);
        const RECT place{0, 0, info.size.cx, info.size.cy};
        ASSERT_EQ(page->Activate(frame, &place, FALSE), S_OK);
        ASSERT_EQ(page->Show(SW_SHOW), S_OK);
    }
    void Select(IUnknown* selected) { ASSERT_EQ(page->SetObjects(1, &selected), S_OK); }

    HWND Field(int row) const { return GetDlgItem(GetWindow(frame, GW_CHILD), kFirstField + row); }
    std::wstring TextOf(int row) const {
        wchar_t text[100] = L"";
        GetWindowTextW(Field(row), text, 100);
        return text;
    }
    void Type(int row, const wchar_t* text) { SetWindowTextW(Field(row), text); }
    void Choose(int row, int index) {
        SendMessageW(Field(row), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
        SendMessageW(GetParent(Field(row)), WM_COMMAND,
                     MAKEWPARAM(kFirstField + row, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(Field(row)));
    }
    int Choice(int row) { return static_cast<int>(SendMessageW(Field(row), CB_GETCURSEL, 0, 0)); }
    COLORREF ColorOf(int row) {
        const HDC context = CreateCompatibleDC(nullptr);
        SetTextColor(context, 0);
        SendMessageW(GetParent(Field(row)), WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(context),
                     reinterpret_cast<LPARAM>(Field(row)));
        const COLORREF color = GetTextColor(context);
        DeleteDC(context);
        return color;
    }
    bool IsDirty() { return page->IsPageDirty() == S_OK; }
    HRESULT Press(WPARAM key) {
        MSG message{GetFocus(), WM_KEYDOWN, key, 0, 0, {}};
        return page->TranslateAccelerator(&message);
    }
};

TEST_F(PropertyPages, ShowTheFirstObjectOnly) {
    Open(kGeneralPage);
    EXPECT_EQ(Choice(kAppearance), 1);
    EXPECT_EQ(SendMessageW(Field(kWeekend), BM_GETCHECK, 0, 0), BST_CHECKED);
    EXPECT_EQ(TextOf(kDate), L"3/15/2024");
    EXPECT_EQ(TextOf(kFormat), L"d mmm yyyy");
    EXPECT_FALSE(IsDirty());

    const auto other = New<FakeObject>();
    other->Set(L"FirstDayOfWeek", 7);
    IUnknown* const both[] = {object.Get(), other.Get()};
    Open(kDayPage);
    ASSERT_EQ(page->SetObjects(2, const_cast<IUnknown**>(both)), S_OK);
    EXPECT_EQ(Choice(kFirstDay), 1);
    Choose(kFirstDay, 4);
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(object->members[L"FirstDayOfWeek"].lVal, 5);
    EXPECT_TRUE(other->written.empty());
}

TEST_F(PropertyPages, EditsMakeThePageDirtyAndBadTextRed) {
    Open(kDropDownPage);
    EXPECT_TRUE(site->status.empty());
    Type(kWidth, L"12a");
    EXPECT_EQ(ColorOf(kWidth), kInvalidText);
    EXPECT_FALSE(IsDirty());
    Type(kWidth, L"130");
    EXPECT_EQ(ColorOf(kWidth), kValidText);
    EXPECT_TRUE(IsDirty());
    Type(kWidth, L"140");
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(site->status, (std::vector<DWORD>{PROPPAGESTATUS_DIRTY, PROPPAGESTATUS_CLEAN}));
    EXPECT_EQ(object->written,
              (std::vector<std::wstring>{L"Enabled", L"DropDownWidth", L"DropDownHeight"}));
    EXPECT_EQ(object->members[L"DropDownWidth"].dblVal, 140);
}

TEST_F(PropertyPages, ARefusalKeepsThePageDirtyAndTheRestIsWritten) {
    Open(kDayPage);
    object->refused = {L"DayAppearance"};
    Choose(kDayAppearance, 0);
    Choose(kFirstDay, 6);
    EXPECT_EQ(page->Apply(), MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, 380));
    ComPtr<IErrorInfo> info;
    ASSERT_EQ(GetErrorInfo(0, &info), S_OK);
    EXPECT_TRUE(IsDirty());
    EXPECT_EQ(object->members[L"FirstDayOfWeek"].lVal, 7);
    EXPECT_EQ(Choice(kDayAppearance), 0);
    object->refused.clear();
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(object->members[L"DayAppearance"].lVal, 0);
}

TEST_F(PropertyPages, DatesAreOfTheSitesLocaleAndTravelAsDates) {
    site->locale = MAKELCID(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN), SORT_DEFAULT);
    Open(kGeneralPage);
    EXPECT_TRUE(TextOf(kDate).starts_with(L"15."));
    Type(kDate, L"2.3.2024");
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(object->members[L"DateValue"].vt, VT_DATE);
    EXPECT_EQ(object->members[L"DateValue"].date, kMarch15 - 13);
}

TEST_F(PropertyPages, WhatTheObjectLacksIsDisabledAndNotWritten) {
    const auto poor = New<FakeObject>();
    poor->Set(L"DayAppearance", 0);
    object = poor;
    Open(kDayPage);
    EXPECT_FALSE(IsWindowEnabled(Field(kFirstDay)));
    EXPECT_TRUE(IsWindowEnabled(Field(kDayAppearance)));
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(poor->written, (std::vector<std::wstring>{L"DayAppearance"}));
}

TEST_F(PropertyPages, EditsOutliveDeactivation) {
    Open(kDayPage);
    Choose(kFirstDay, 3);
    ASSERT_EQ(page->Deactivate(), S_OK);
    EXPECT_TRUE(IsDirty());
    Activate();
    EXPECT_EQ(Choice(kFirstDay), 3);
    ASSERT_EQ(page->Deactivate(), S_OK);
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(object->members[L"FirstDayOfWeek"].lVal, 4);
}

TEST_F(PropertyPages, CallsOutOfOrderAreRefused) {
    EXPECT_EQ(CreatePropertyPage(IID_IUnknown, IID_PPV_ARGS(&page)), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(CreatePropertyPage(kDayPage, IID_IUnknown, nullptr), E_POINTER);
    ASSERT_EQ(CreatePropertyPage(kDayPage, IID_PPV_ARGS(&page)), S_OK);
    const RECT place{0, 0, 100, 100};
    IUnknown* nothing = nullptr;
    EXPECT_EQ(page->Deactivate(), E_UNEXPECTED);
    EXPECT_EQ(page->Show(SW_SHOW), E_UNEXPECTED);
    EXPECT_EQ(page->Move(&place), E_UNEXPECTED);
    EXPECT_EQ(page->Apply(), E_UNEXPECTED);
    EXPECT_EQ(page->EditProperty(1), E_UNEXPECTED);
    EXPECT_EQ(page->GetPageInfo(nullptr), E_POINTER);
    EXPECT_EQ(page->TranslateAccelerator(nullptr), E_POINTER);
    EXPECT_EQ(page->SetObjects(1, nullptr), E_POINTER);
    EXPECT_EQ(page->SetObjects(1, &nothing), E_POINTER);
    EXPECT_EQ(page->SetObjects(0, nullptr), S_OK);
    EXPECT_EQ(page->Activate(frame, nullptr, FALSE), E_POINTER);
    EXPECT_EQ(page->Activate(nullptr, &place, FALSE), E_INVALIDARG);
    EXPECT_EQ(page->Activate(frame, &place, FALSE), S_OK);
    EXPECT_EQ(page->Activate(frame, &place, FALSE), E_UNEXPECTED);
    EXPECT_EQ(page->Show(SW_MAXIMIZE), E_INVALIDARG);
    EXPECT_EQ(page->SetPageSite(site.Get()), S_OK);
    EXPECT_EQ(page->SetPageSite(site.Get()), E_UNEXPECTED);
    DestroyWindow(frame);
    EXPECT_EQ(page->Deactivate(), E_UNEXPECTED);
}

/// Frame or object take everything away in the middle of a call.
TEST_F(PropertyPages, SurviveTheEndInsideOfACall) {
    Open(kDayPage);
    object->onWrite = [this] {
        if (!page) return;
        page->SetObjects(0, nullptr);
        page->Deactivate();
        page->SetPageSite(nullptr);
        page.Reset();
    };
    Choose(kFirstDay, 0);
    EXPECT_EQ(page.Get()->Apply(), S_OK);
    EXPECT_EQ(object->written, (std::vector<std::wstring>{L"FirstDayOfWeek"}));

    object->onWrite = [] {};
    Open(kDayPage);
    site->onStatus = [this] {
        page->Deactivate();
        page->SetPageSite(nullptr);
        page.Reset();
    };
    Choose(kFirstDay, 5);
    EXPECT_FALSE(page);
}

TEST_F(PropertyPages, TabWalksTheFieldsAndLeavesAtTheEnd) {
    Open(kDropDownPage);
    SetFocus(frame);
    EXPECT_EQ(Press(VK_RETURN), S_OK);  // the frame's
    EXPECT_EQ(site->keys, 1);
    for (const int row : {kEnabled, kWidth, kHeight}) {
        EXPECT_EQ(Press(VK_TAB), S_OK);
        EXPECT_EQ(GetFocus(), Field(row));
    }
    EXPECT_EQ(site->keys, 1);
    EXPECT_EQ(Press(VK_TAB), S_OK);
    EXPECT_EQ(GetFocus(), Field(kHeight));
    EXPECT_EQ(Press(VK_ESCAPE), S_OK);
    EXPECT_EQ(site->keys, 3);
    MSG timer{frame, WM_TIMER, 0, 0, 0, {}};
    EXPECT_EQ(page->TranslateAccelerator(&timer), S_FALSE);
    EXPECT_EQ(site->keys, 3);
}

TEST_F(PropertyPages, EditPropertyBringsTheFocusToItsField) {
    Open(kDropDownPage);
    wchar_t name[] = L"DropDownHeight";
    LPOLESTR names = name;
    DISPID id = 0;
    ASSERT_EQ(object->GetIDsOfNames(GUID{}, &names, 1, 0, &id), S_OK);
    EXPECT_EQ(page->EditProperty(id), S_OK);
    EXPECT_EQ(GetFocus(), Field(kHeight));
    ASSERT_EQ(page->Deactivate(), S_OK);
    EXPECT_EQ(page->EditProperty(id), S_OK);
    Activate();
    EXPECT_EQ(GetFocus(), Field(kHeight));
    EXPECT_EQ(page->EditProperty(1000), E_INVALIDARG);
}

}  // namespace
}  // namespace velmora
