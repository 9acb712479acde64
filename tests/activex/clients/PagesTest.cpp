#include "apps/vmhost/PageFrame.h"
#include "tests/activex/support/ClientTest.h"
#include "tests/activex/support/Input.h"

#include <atomic>
#include <thread>

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
    const char* value;          // null: as before
    std::wstring message = {};  // that is shown and confirmed
};

constexpr int kEarliest = 108;
constexpr int kLatest = 109;
constexpr int kFormat = 111;
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

/// Waits for a message box, presses Enter and gives its text.
std::wstring ConfirmMessage() {
    for (int attempt = 0; attempt < 300; ++attempt) {
        Sleep(10);
        const HWND box = FindWindowW(L"#32770", nullptr);
        if (!box || GetForegroundWindow() != box) continue;
        std::wstring all;
        HWND text = nullptr;
        while ((text = FindWindowExW(box, text, L"Static", nullptr)) != nullptr) {
            wchar_t part[200] = L"";
            GetWindowTextW(text, part, 200);
            all += part;
        }
        TypeKey(VK_RETURN);
        return all;
    }
    return L"no message";
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
    /// Presses the button and confirms the message, if one is to come.
    std::wstring Press(PageFrame& frame, int button, bool complains) {
        std::atomic<bool> done = !complains;
        std::wstring message;
        std::thread user([&] {
            if (complains) message = ConfirmMessage();
            done = true;
        });
        ClickOn(GetDlgItem(frame.Window(), button));
        EXPECT_TRUE(ServePages(
            frame, [&] { return done && (complains || !frame.IsOpen() || !frame.CanApply()); }));
        user.join();
        return message;
    }
};

TEST_F(Pages, EveryPageOpensAndCloses) {
    for (const auto& [classText, least] :
         {std::pair(kCalendarClass, 2U), std::pair(kBoxClass, 3U)}) {
        ControlSite& site = Add(classText, "C", kCalendarPlace);
        PageFrame frame(form->Window(), site.Control(), "Pages");
        EXPECT_GE(frame.PageCount(), least) << classText;
        for (std::size_t index = 0; index < frame.PageCount(); ++index) {
            frame.ShowPage(index);
            ServeWaiting(form.Get());
            EXPECT_NE(PageIn(frame.Window()), GetDlgItem(frame.Window(), 1)) << classText;
            EXPECT_FALSE(frame.CanApply()) << classText << " page " << index;
        }
        frame.Press(IDCANCEL);
        EXPECT_FALSE(frame.IsOpen());
        form->Remove(site);
    }
}

TEST_F(Pages, AnEditReachesTheControlWhenItIsApplied) {
    const Edit edits[] = {
        {kCalendarClass, kGeneral, kLatest, L"12/12/2030", PageFrame::kApply, "DateMax",
         "2030-12-31"},
        {kCalendarClass, kGeneral, kLatest, L"12/12/2030", IDCANCEL, "DateMax", nullptr},
        {kCalendarClass, kDays, kFirstDay, nullptr, IDOK, "FirstDayOfWeek", "2"},
        {kBoxClass, kGeneral, kFormat, L"yyyy", IDOK, "DateFormat", "\"yyyy\""},
        {kBoxClass, kDropDown, kWidth, L"4500", PageFrame::kApply, "DropDownWidth", "4500"},
        {kCalendarClass, kGeneral, kEarliest, L"1/1/1500\b\b\b\b\b\b\b\b", PageFrame::kApply,
         "DateMin", nullptr, L"Property 'DateMin' cannot be blank"},
        {kCalendarClass, kGeneral, kEarliest, L"1/1/3500", IDOK, "DateMin", nullptr,
         L"Invalid property value"},
        {kBoxClass, kDropDown, kWidth, L"1.2.3", IDOK, "DropDownWidth", nullptr,
         L"Property 'DropDownWidth' must a number."}};
    for (const Edit& edit : edits) {
        SCOPED_TRACE(std::string(edit.property) + " " + std::to_string(edit.button));
        ControlSite& site = Add(edit.classText, "C", kCalendarPlace);
        const std::string before = Got(site.Control(), edit.property);
        PageFrame frame(form->Window(), site.Control(), "Pages");
        SetForegroundWindow(frame.Window());
        frame.ShowPage(edit.page);
        const HWND field = GetDlgItem(PageIn(frame.Window()), edit.field);
        ASSERT_NE(field, nullptr);
        TypeInto(frame, field, edit.text);
        EXPECT_EQ(Got(site.Control(), edit.property), before);

        EXPECT_EQ(Press(frame, edit.button, !edit.message.empty()), edit.message);
        EXPECT_EQ(Got(site.Control(), edit.property), edit.value ? edit.value : before);
        EXPECT_EQ(frame.IsOpen(), edit.button == PageFrame::kApply || !edit.message.empty());
        frame.Press(IDCANCEL);
        form->Remove(site);
    }
}

}  // namespace
}  // namespace velmora::vmhost
