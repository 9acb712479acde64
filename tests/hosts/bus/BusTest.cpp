#include "VelmoraCalendar/VmCalDropDownWidget.h"
#include "tests/hosts/WidgetSupport.h"

#include <QProcess>
#include <QTimer>

#include <algorithm>

namespace velmora {
namespace {

/// A screen reader on the accessibility bus, in a process of its own (reader.py).
class Reader {
public:
    Reader() {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start("/usr/bin/python3", {VELMORA_TESTS_FOLDER "/hosts/bus/reader.py"});
    }
    ~Reader() {
        m_process.closeWriteChannel();
        Wait([&] { return m_process.state() == QProcess::NotRunning; });
    }

    /// What is below and at that name.
    Names Tree(const std::string& name) { return Ask("tree " + name); }
    void Press(const std::string& name) { EXPECT_EQ(Ask("press " + name), Names()); }
    /// It hears these, one after the other, as the last since what it has heard before.
    void Hears(const Names& last) {
        Wait([&] { return Take() && !m_heard.empty() && m_heard.back() == last.back(); });
        const auto count = std::min(m_heard.size(), last.size());
        const auto end = m_heard.end();
        EXPECT_EQ(Names(end - static_cast<std::ptrdiff_t>(count), end), last);
        m_heard.clear();
    }

private:
    static constexpr int kDeadline = 20000;  // milliseconds

    /// Answers the bus at once, which asks often.
    template <class IsOver>
    static void Wait(IsOver isOver) {
        QTimer deadline;
        deadline.setSingleShot(true);
        deadline.start(kDeadline);
        while (!isOver() && deadline.isActive()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }
    /// One line; false when there is none.
    bool Take() {
        if (!m_process.canReadLine()) return false;
        std::string line = m_process.readLine().chopped(1).toStdString();
        if (line.starts_with("! ")) {
            m_heard.push_back(line.substr(2));
        } else {
            m_answer.push_back(std::move(line));
        }
        return true;
    }
    Names Ask(const std::string& command) {
        m_process.write((command + '\n').c_str());
        Wait([&] { return Take() && !m_answer.empty() && m_answer.back().empty(); });
        if (!m_answer.empty()) m_answer.pop_back();
        return std::exchange(m_answer, {});
    }

    QProcess m_process;
    Names m_heard;
    Names m_answer;
};

TEST(Bus, ReaderReadsHearsAndActs) {
    QWidget window;
    window.resize(300, 300);
    auto* const calendar = new Widget(&window);
    auto* const box = new VmCalDropDownWidget(&window);
    calendar->setAccessibleName("Departure");
    box->setAccessibleName("Arrival");
    for (QWidget* const child : QWidgetList{calendar, box}) Prepare(*child);
    box->setGeometry(0, 230, 120, 24);
    calendar->setMonthYearSelStyle(Widget::MonthSelArrows);
    calendar->setDateMin(QDate(2024, 5, 1));
    calendar->day(8)->Caption("paid");
    window.setLocale(box->locale());
    box->setFocus();
    window.show();
    window.activateWindow();
    Reader reader;

    const std::pair<std::size_t, const char*> lines[] = {
        {0, "table | Departure, May 2024 |  |  |  | SetFocus"},
        {1, "  push button | Previous year |  |  | disabled | Press"},
        {3, "  push button | Next month |  |  |  | Press"},
        {5, "  table column header | Sunday |  |  |  | "},
        {12, "  table cell | Sunday, April 28, 2024 |  |  | disabled | "},
        {22, "  table cell | Wednesday, May 8, 2024 | paid |  |  | Press"},
        {29, "  table cell | Wednesday, May 15, 2024 |  |  | selected | Press"}};
    const Names tree = reader.Tree("Departure, May 2024");
    ASSERT_EQ(tree.size(), 1u + 4 + 7 + 42);
    for (const auto& [place, line] : lines) EXPECT_EQ(tree[place], line);

    const std::string day =
        "focus: table cell | Wednesday, May 15, 2024 |  |  | selected focused | Press";
    calendar->setFocus();
    reader.Hears({day});
    const std::string next =
        "focus: table cell | Thursday, May 16, 2024 |  |  | selected focused | Press";
    SendKey(calendar, Qt::Key_Right);
    reader.Hears({next});
    const std::string month = "name: table | Departure, June 2024 |  |  | focused | SetFocus";
    reader.Press("Next month");
    reader.Hears({month});

    const std::string actions = " | ShowMenu Press SetFocus";
    const std::string focused = "focus: combo box | Arrival, 5/15/2024 |  |  | focused" + actions;
    box->setFocus();
    reader.Hears({focused});
    SendKey(box, Qt::Key_F4);
    reader.Hears({day});
    const Names open = reader.Tree("Arrival, 5/15/2024");
    ASSERT_EQ(open.size(), 2u + 7 + 42);
    EXPECT_EQ(open[0], "combo box | Arrival, 5/15/2024 |  |  | focused expanded" + actions);
    EXPECT_EQ(open[1], "  table | May 2024 |  |  |  | ");
    SendKey(box, Qt::Key_Right);
    const std::string stepped = "name: combo box | Arrival, 5/16/2024 |  |  | focused expanded";
    reader.Hears({stepped + actions, next});
    const std::string chosen = "focus: combo box | Arrival, 5/17/2024 |  |  | focused" + actions;
    reader.Press("Friday, May 17, 2024");
    reader.Hears({"name" + chosen.substr(5), chosen});
    SendKey(box, Qt::Key_F4);
    const std::string again =
        "focus: table cell | Friday, May 17, 2024 |  |  | selected focused | Press";
    reader.Hears({again});
    SendKey(box, Qt::Key_Escape);
    reader.Hears({chosen});

    calendar->setMonthYearSelStyle(Widget::MonthSelScrollbar);
    EXPECT_EQ(reader.Tree("Departure, June 2024").at(1),
              "  scroll bar | Month, June 2024 |  | 1494 |  | SetFocus Increase Decrease");
}

}  // namespace
}  // namespace velmora
