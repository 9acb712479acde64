#include "hosts/activex/win32/WinText.h"
#include "tests/activex/support/ClientTest.h"
#include "tests/activex/support/Input.h"

#include <oleacc.h>

#include <atomic>
#include <cstdio>
#include <deque>
#include <iostream>
#include <sstream>
#include <thread>

namespace velmora::vmhost {
namespace {

using Names = std::vector<std::pair<long, const char*>>;

constexpr wchar_t kWindows[] = L"VELMORA_READ";  // what the reader reads: calendar and box

std::string Text(HRESULT (STDMETHODCALLTYPE IAccessible::*member)(VARIANT, BSTR*),
                 IAccessible& object, long child) {
    BSTR text = nullptr;
    (object.*member)(Value(child).Get(), &text);
    const std::string read = text ? ToUtf8(text) : "";
    SysFreeString(text);
    return read;
}

long Of(HRESULT (STDMETHODCALLTYPE IAccessible::*member)(VARIANT, VARIANT*), IAccessible& object,
        long child) {
    VARIANT number{};
    (object.*member)(Value(child).Get(), &number);
    return V_VT(&number) == VT_I4 ? V_I4(&number) : -1;
}

/// "12 cell | name | value | description | states | action".
std::string Described(IAccessible& object, long child) {
    static const Names kRoles{{ROLE_SYSTEM_TABLE, "table"},       {ROLE_SYSTEM_CELL, "cell"},
                              {ROLE_SYSTEM_PUSHBUTTON, "button"}, {ROLE_SYSTEM_TEXT, "text"},
                              {ROLE_SYSTEM_COLUMNHEADER, "head"}, {ROLE_SYSTEM_COMBOBOX, "combo"},
                              {ROLE_SYSTEM_SPINBUTTON, "spin"},   {ROLE_SYSTEM_SCROLLBAR, "bar"}};
    static const Names kStates{
        {STATE_SYSTEM_SELECTED, " selected"},       {STATE_SYSTEM_FOCUSED, " focused"},
        {STATE_SYSTEM_UNAVAILABLE, " unavailable"}, {STATE_SYSTEM_INVISIBLE, " invisible"},
        {STATE_SYSTEM_EXPANDED, " expanded"},       {STATE_SYSTEM_COLLAPSED, " collapsed"}};
    std::string line = std::to_string(child);
    const long role = Of(&IAccessible::get_accRole, object, child);
    for (const auto& [number, name] : kRoles) line += number == role ? ' ' + std::string(name) : "";
    for (const auto member : {&IAccessible::get_accName, &IAccessible::get_accValue,
                              &IAccessible::get_accDescription}) {
        line += " | " + Text(member, object, child);
    }
    line += " |";
    const long states = Of(&IAccessible::get_accState, object, child);
    for (const auto& [state, name] : kStates) line += states & state ? name : "";
    return line + " | " + Text(&IAccessible::get_accDefaultAction, object, child);
}

/// A screen reader, in a process of its own; it says what it reads.
class ScreenReader {
public:
    explicit ScreenReader(HWND window) {
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        m_hook = SetWinEventHook(EVENT_OBJECT_FOCUS, EVENT_OBJECT_VALUECHANGE, nullptr, &Hear,
                                 process, 0, WINEVENT_OUTOFCONTEXT);
    }
    ~ScreenReader() { UnhookWinEvent(m_hook); }

    static ComPtr<IAccessible> At(HWND window) {
        ComPtr<IAccessible> object;
        AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                   reinterpret_cast<void**>(object.GetAddressOf()));
        return object;
    }
    static ComPtr<IAccessible> Child(IAccessible& object, long number) {
        ComPtr<IDispatch> child;
        ComPtr<IAccessible> its;
        if (object.get_accChild(Value(number).Get(), &child) == S_OK) child.As(&its);
        return its;
    }
    /// Those of the numbers, and what else is special; each is found where it says it is.
    static void ReadAll(IAccessible& object, const std::vector<long>& numbers) {
        long count = 0;
        object.get_accChildCount(&count);
        for (long number = 0; number <= count; ++number) {
            const ComPtr<IAccessible> child = number > 0 ? Child(object, number) : nullptr;
            const std::string line = child ? Described(*child.Get(), 0) : Described(object, number);
            if (std::ranges::find(numbers, number) != numbers.end() || child ||
                line.find("selected") != std::string::npos) {
                std::cout << line << '\n';
            }
            long left = 0, top = 0, width = 0, height = 0;
            if (child || number == 0) continue;
            object.accLocation(&left, &top, &width, &height, Value(number).Get());
            ComPtr<IAccessible> there;
            VARIANT found{};
            AccessibleObjectFromPoint({left + width / 2, top + height / 2}, &there, &found);
            EXPECT_EQ(V_I4(&found), number) << line;
        }
    }
    /// Reads what is told, as far as the last one.
    static void Listen(DWORD last) {
        const ULONGLONG deadline = GetTickCount64() + 5000;
        for (DWORD heard = 0; heard != last && GetTickCount64() < deadline;) {
            ServeWaiting(nullptr);
            for (; heard != last && !s_heard.empty(); s_heard.pop_front()) {
                const auto [event, window, child] = s_heard.front();
                heard = event;
                static const Names kEvents{{EVENT_OBJECT_FOCUS, "focus: "},
                                           {EVENT_OBJECT_SELECTION, "selection: "},
                                           {EVENT_OBJECT_STATECHANGE, "state: "},
                                           {EVENT_OBJECT_NAMECHANGE, "name: "},
                                           {EVENT_OBJECT_VALUECHANGE, "value: "}};
                for (const auto& [number, name] : kEvents) {
                    if (static_cast<DWORD>(number) != event) continue;
                    std::cout << name << Described(*At(window).Get(), child) << '\n';
                }
            }
            if (heard != last) MsgWaitForMultipleObjects(0, nullptr, FALSE, 100, QS_ALLINPUT);
        }
    }

private:
    struct Told {
        DWORD event;
        HWND window;
        LONG child;
    };
    static void CALLBACK Hear(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG child,
                              DWORD, DWORD) {
        if (object == OBJID_CLIENT) s_heard.push_back({event, window, child});
    }
    static inline std::deque<Told> s_heard;
    HWINEVENTHOOK m_hook;
};

/// Started by the test below, for the windows of that.
TEST(Reader, DISABLED_InItsOwnProcess) {
    wchar_t windows[64] = {};
    if (!GetEnvironmentVariableW(kWindows, windows, 64)) GTEST_SKIP() << "nothing to read";
    std::wistringstream numbers(windows);
    const auto next = [&numbers] {
        long number = 0;
        numbers >> number;
        return static_cast<HWND>(LongToHandle(number));
    };
    const HWND calendar = next(), box = next(), lists = next();
    const ScreenReader reader(calendar);

    const ComPtr<IAccessible> table = ScreenReader::At(calendar);
    ASSERT_TRUE(table);
    ScreenReader::ReadAll(*table.Get(), {0, 1, 4, 5, 12, 22, 53});
    for (const long direction : {NAVDIR_LEFT, NAVDIR_UP, NAVDIR_NEXT, NAVDIR_LASTCHILD}) {
        VARIANT to{};
        table->accNavigate(direction, Value(direction == NAVDIR_LASTCHILD ? 0 : 29).Get(), &to);
        std::cout << V_I4(&to) << ' ';
    }
    std::cout << "\nlists\n";
    ScreenReader::ReadAll(*ScreenReader::At(lists).Get(), {0});
    std::cout << "right\n";
    PostMessageW(calendar, WM_KEYDOWN, VK_RIGHT, 0);
    ScreenReader::Listen(EVENT_OBJECT_FOCUS);
    std::cout << "next month\n";
    EXPECT_EQ(table->accDoDefaultAction(Value(3).Get()), S_OK);
    ScreenReader::Listen(EVENT_OBJECT_NAMECHANGE);
    std::cout << "select\n";
    EXPECT_EQ(table->accSelect(SELFLAG_TAKESELECTION, Value(22).Get()), S_OK);
    ScreenReader::Listen(EVENT_OBJECT_FOCUS);

    std::cout << "open\n";
    const ComPtr<IAccessible> combo = ScreenReader::At(box);
    ASSERT_TRUE(combo);
    EXPECT_EQ(combo->accDoDefaultAction(Value(0).Get()), S_OK);
    ScreenReader::Listen(EVENT_OBJECT_SELECTION);
    const ComPtr<IAccessible> open = ScreenReader::Child(*combo.Get(), 1);
    ASSERT_TRUE(open);
    ScreenReader::ReadAll(*open.Get(), {0});
    std::cout << "choose\n";
    EXPECT_EQ(open->accDoDefaultAction(Value(26).Get()), S_OK);
    ScreenReader::Listen(EVENT_OBJECT_STATECHANGE);
    wchar_t text[32] = {};
    SendMessageW(box, WM_GETTEXT, 32, reinterpret_cast<LPARAM>(text));
    std::cout << ToUtf8(text) << '\n';

    SendMessageW(GetAncestor(box, GA_ROOT), WM_CLOSE, 0, 0);
    for (const auto& object : {table, combo}) {
        BSTR name = nullptr;
        const HRESULT result = object->get_accName(Value(0).Get(), &name);
        EXPECT_TRUE(result == CO_E_OBJNOTCONNECTED || result == RPC_E_DISCONNECTED) << result;
    }
}

/// Runs the test above; what it says.
std::string ReadAloud(Form& form) {
    std::wstring windows;
    for (const auto& site : form.Sites()) {
        windows += std::to_wstring(HandleToLong(site->ControlWindow())) + L' ';
    }
    SetEnvironmentVariableW(kWindows, windows.c_str());
    wchar_t program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    const std::wstring line = program + std::wstring(L" --gtest_also_run_disabled_tests") +
                              L" --gtest_brief=1 --gtest_filter=Reader.DISABLED_*";
    std::string said;
    std::atomic<bool> isOver = false;
    std::thread listener([&] {
        FILE* const pipe = _wpopen(line.c_str(), L"r");
        for (char part[256]; std::fgets(part, sizeof part, pipe);) said += part;
        _pclose(pipe);
        isOver = true;
    });
    EXPECT_TRUE(ServeUntil(
        &form, [&] { return isOver.load(); }, 60000));
    listener.join();
    const std::size_t begin = said.find('\n') + 1;  // behind the line of the program's own
    return said.substr(begin, said.find("[=====") - begin);
}

using Readers = ClientTest;

TEST_F(Readers, ReadHearAndActFromAnotherProcess) {
    ControlSite& calendar = AddCalendar();
    CreateWindowExW(0, L"STATIC", L"&Arrival", WS_CHILD | WS_VISIBLE, 280, 0, 80, 10,
                    form->Window(), nullptr, nullptr, nullptr);
    ControlSite& box = AddBox();
    ControlSite& lists = Add(kCalendarClass, "Lists", {270, 40, 490, 240});
    for (ControlSite* const site : {&calendar, &box, &lists}) SetDate(*site, 2024, 5, 15);
    PutProperty(lists.Control(), "MonthYearSelStyle", Value(2));
    PutProperty(calendar.Control(), "MonthYearSelStyle", Value(1));
    PutProperty(calendar.Control(), "DateMin", Value::Date(DayFromCivil(2024, 5, 1)));
    {
        const Value days = GetProperty(calendar.Control(), "Days").result;
        const Value eighth = GetProperty(days.Object(), "Item", {Value(8)}).result;
        PutProperty(eighth.Object(), "Caption", "paid");
    }
    FocusOn(calendar);
    EXPECT_EQ(ReadAloud(*form.Get()), R"(0 table | May 2024 |  |  | focused | 
1 button | Previous year |  |  | unavailable | Press
4 button | Next year |  |  | | Press
5 head | Sunday |  |  | | 
12 cell | Sunday, April 28, 2024 |  |  | unavailable | 
22 cell | Wednesday, May 8, 2024 |  | paid | | Select
29 cell | Wednesday, May 15, 2024 |  |  | selected focused | Select
53 cell | Saturday, June 8, 2024 |  |  | | Select
28 22 30 53 
lists
0 table | May 2024 |  |  | | 
25 cell | Wednesday, May 15, 2024 |  |  | selected | Select
0 combo | Month | May |  | collapsed | Open
0 text | Year | 2024 |  | | 
0 spin | Year | 2024 |  | | 
right
selection: 30 cell | Thursday, May 16, 2024 |  |  | selected focused | Select
focus: 30 cell | Thursday, May 16, 2024 |  |  | selected focused | Select
next month
name: 0 table | June 2024 |  |  | focused | 
select
selection: 22 cell | Wednesday, June 5, 2024 |  |  | selected focused | Select
focus: 22 cell | Wednesday, June 5, 2024 |  |  | selected focused | Select
open
focus: 0 combo | Arrival | 5/15/2024 |  | focused expanded | Close
state: 0 combo | Arrival | 5/15/2024 |  | focused expanded | Close
name: 0 table | May 2024 |  |  | | 
selection: 25 cell | Wednesday, May 15, 2024 |  |  | selected | Select
0 table | May 2024 |  |  | | 
25 cell | Wednesday, May 15, 2024 |  |  | selected | Select
choose
value: 0 combo | Arrival | 5/16/2024 |  | focused collapsed | Open
state: 0 combo | Arrival | 5/16/2024 |  | focused collapsed | Open
5/16/2024
)");
    EXPECT_TRUE(Serve([] {
        CoFreeUnusedLibrariesEx(0, 0);
        return !IsModuleLoaded(L"VelmoraCalendar.ocx");
    }));
}

}  // namespace
}  // namespace velmora::vmhost
