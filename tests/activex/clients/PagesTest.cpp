#include "apps/vmhost/PageFrame.h"
#include "tests/activex/support/ClientTest.h"

#include <commctrl.h>

namespace velmora::vmhost {
namespace {

using Pages = ClientTest;

/// The first visible child of that window class, below any number of others.
HWND FindChild(HWND parent, const wchar_t* windowClass) {
    struct Search {
        const wchar_t* windowClass;
        HWND found;
    } search{windowClass, nullptr};
    EnumChildWindows(
        parent,
        [](HWND window, LPARAM data) -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(data);
            wchar_t name[64];
            GetClassNameW(window, name, 64);
            if (_wcsicmp(name, wanted.windowClass) != 0 || !IsWindowVisible(window)) return TRUE;
            wanted.found = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

/// The window class of what lies in the middle of the frame.
std::wstring ClassInTheMiddle(HWND frame) {
    RECT area{};
    GetClientRect(frame, &area);
    wchar_t name[64] = L"";
    GetClassNameW(
        ChildWindowFromPointEx(frame, {area.right / 2, area.bottom / 2}, CWP_SKIPINVISIBLE), name,
        64);
    return name;
}

TEST_F(Pages, EveryPageOpensAndCloses) {
    for (const auto& [classText, least] :
         {std::pair(kCalendarClass, 2U), std::pair(kBoxClass, 3U)}) {
        ControlSite& site = Add(classText, "C", kCalendarPlace);
        PageFrame frame(form->Window(), site.Control(), "Pages");
        EXPECT_GE(frame.PageCount(), least) << classText;
        for (std::size_t index = 0; index < frame.PageCount(); ++index) {
            frame.ShowPage(index);
            ServeWaiting(form.Get());
            EXPECT_NE(ClassInTheMiddle(frame.Window()), WC_TABCONTROLW) << classText;
            EXPECT_FALSE(frame.CanApply()) << classText << " page " << index;
        }
        frame.Press(IDCANCEL);
        EXPECT_FALSE(frame.IsOpen());
        form->Remove(site);
    }
}

TEST_F(Pages, AChangedListIsAppliedAndACancelledOneIsNot) {
    ControlSite& site = AddCalendar();
    for (const int button : {PageFrame::kApply, static_cast<int>(IDCANCEL)}) {
        PageFrame frame(form->Window(), site.Control(), "Pages");
        const HWND list = FindChild(frame.Window(), L"COMBOBOX");
        ASSERT_NE(list, nullptr);
        const auto state = [&] {
            std::vector<std::string> values;
            for (const PropertyInfo& property : PropertiesOf(site.Control())) {
                values.push_back(Got(site.Control(), property.name));
            }
            return values;
        };
        const std::vector<std::string> before = state();
        const LRESULT chosen = SendMessageW(list, CB_GETCURSEL, 0, 0);
        SendMessageW(list, CB_SETCURSEL, chosen == 0 ? 1 : 0, 0);
        SendMessageW(GetParent(list), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(list), CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(list));
        EXPECT_TRUE(frame.CanApply());
        EXPECT_EQ(state(), before);
        frame.Press(button);
        EXPECT_EQ(state() != before, button == PageFrame::kApply);
        EXPECT_EQ(frame.IsOpen(), button == PageFrame::kApply);
    }
}

}  // namespace
}  // namespace velmora::vmhost
