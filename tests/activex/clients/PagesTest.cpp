#include "apps/vmhost/PageFrame.h"
#include "tests/activex/support/ClientTest.h"
#include "tests/activex/support/Input.h"

#include <commctrl.h>

namespace velmora::vmhost {
namespace {

struct Edit {
    const char* classText;
    std::size_t page;
    int field;            // its control's identifier
    const wchar_t* text;  // null: the next item of a list
    int button;
    const char* property;
    const char* value;  // null: as before
};

constexpr int kLatest = 109;
constexpr int kWidth = 101;
constexpr int kFirstDay = 100;
constexpr std::size_t kGeneral = 0;
constexpr std::size_t kDays = 1;
constexpr std::size_t kDropDown = 2;

/// What lies in the middle of the frame.
HWND PageIn(HWND frame) {
    RECT area{};
    GetClientRect(frame, &area);
    return ChildWindowFromPointEx(frame, {area.right / 2, area.bottom / 2}, CWP_SKIPINVISIBLE);
}

class Pages : public ClientTest {
protected:
    static bool ServePages(PageFrame& frame, const std::function<bool()>& condition) {
        const auto served = [&] {
            for (MSG message{}; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) {
                if (frame.PreTranslate(message)) continue;
                TranslateMessage(&message);
                DispatchMessageW(&message);
            }
            return condition();
        };
        return ServeUntil(nullptr, served, 3000);
    }
    static void ClickOn(HWND window) { Click(OnScreen(window, 8, 8)); }

    void TypeInto(PageFrame& frame, HWND field, const wchar_t* text) {
        ClickOn(field);
        EXPECT_TRUE(ServePages(frame, [&] { return GetFocus() == field; }));
        if (text) {
            TypeKey(VK_END);
            TypeKey(VK_HOME, VK_SHIFT);
            TypeKey(VK_DELETE);
            TypeText(text);
        } else {
            TypeKey(VK_DOWN);
            TypeKey(VK_RETURN);
        }
        EXPECT_TRUE(ServePages(frame, [&] { return frame.CanApply(); }));
        EXPECT_TRUE(frame.IsOpen());
    }
};

TEST_F(Pages, AnEditReachesTheControlWhenItIsApplied) {
    const Edit edits[] = {
        {kCalendarClass, kGeneral, kLatest, L"12/12/2030", PageFrame::kApply, "DateMax",
         "2030-12-31"},
        {kCalendarClass, kGeneral, kLatest, L"12/12/2030", IDCANCEL, "DateMax", nullptr},
        {kCalendarClass, kDays, kFirstDay, nullptr, IDOK, "FirstDayOfWeek", "2"},
        {kBoxClass, kDropDown, kWidth, L"4500", PageFrame::kApply, "DropDownWidth", "4500"}};
    for (const Edit& edit : edits) {
        SCOPED_TRACE(std::string(edit.property) + " " + std::to_string(edit.button));
        ControlSite& site = Add(edit.classText, "C", kCalendarPlace);
        const std::string before = Got(site.Control(), edit.property);
        PageFrame frame(form->Window(), site.Control(), "Pages");
        SetForegroundWindow(frame.Window());
        frame.ShowPage(edit.page);
        EXPECT_GE(frame.PageCount(), edit.classText == kBoxClass ? 3u : 2u);
        const HWND field = GetDlgItem(PageIn(frame.Window()), edit.field);
        ASSERT_NE(field, nullptr);
        TypeInto(frame, field, edit.text);
        EXPECT_EQ(Got(site.Control(), edit.property), before);

        ClickOn(GetDlgItem(frame.Window(), edit.button));
        EXPECT_TRUE(ServePages(frame, [&] { return !frame.IsOpen() || !frame.CanApply(); }));
        EXPECT_EQ(Got(site.Control(), edit.property), edit.value ? edit.value : before);
        EXPECT_EQ(frame.IsOpen(), edit.button == PageFrame::kApply);
        frame.Press(IDCANCEL);
        form->Remove(site);
    }
}

}  // namespace
}  // namespace velmora::vmhost
