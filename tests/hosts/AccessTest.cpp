#include "VelmoraCalendar/VmCalDropDownWidget.h"
#include "tests/hosts/WidgetSupport.h"

#include <QAccessible>
#include <QMetaEnum>

namespace velmora {
namespace {

using Box = VmCalDropDownWidget;
using Part = QAccessibleInterface;

std::string TextOf(Part& part, QAccessible::Text kind) { return part.text(kind).toStdString(); }

std::string Described(Part& part) {
    const QAccessible::State state = part.state();
    std::string line(QMetaEnum::fromType<QAccessible::Role>().valueToKey(part.role()));
    for (const auto kind : {QAccessible::Name, QAccessible::Value, QAccessible::Description}) {
        line += " | " + TextOf(part, kind);
    }
    line += " |";
    const std::pair<bool, const char*> states[] = {
        {state.selected, " selected"},   {state.focused, " focused"},
        {state.disabled, " disabled"},   {state.expanded, " expanded"},
        {state.collapsed, " collapsed"}, {!part.isValid(), " gone"}};
    for (const auto& [has, name] : states) line += has ? name : "";
    auto* const action = part.actionInterface();
    for (const QString& name : action ? action->actionNames() : QStringList()) {
        if (name != QAccessibleActionInterface::setFocusAction()) line += ' ' + name.toStdString();
    }
    return line;
}

/// What is shown of a widget and its children, by the places of these; they are where they say.
std::map<int, std::string> TreeOf(Part& root) {
    std::map<int, std::string> lines{{-1, Described(root)}};
    for (int i = 0; i < root.childCount(); ++i) {
        Part& child = *root.child(i);
        if (child.state().invisible) continue;
        lines[i] = Described(child);
        EXPECT_EQ(child.parent(), &root);
        EXPECT_EQ(root.indexOfChild(&child), i);
        EXPECT_EQ(root.childAt(child.rect().center().x(), child.rect().center().y()), &child);
        const auto* const cell = child.tableCellInterface();
        if (!cell) continue;
        Part* const day = root.tableInterface()->cellAt(cell->rowIndex(), cell->columnIndex());
        EXPECT_EQ(day, &child);
        EXPECT_TRUE(child.text(QAccessible::Name)
                        .startsWith(cell->columnHeaderCells().at(0)->text(QAccessible::Name)));
    }
    return lines;
}

class Access : public testing::Test {
protected:
    Access() : calendar(new Widget(&window)), box(new Box(&window)) {
        calendar->setAccessibleName("Departure");
        box->setAccessibleName("Arrival");
        calendar->setMonthYearSelStyle(Widget::MonthSelCombo);
        window.resize(300, 300);
        Prepare(*box);
        Prepare(*calendar);
        calendar->setDateMax(kMay15);
        calendar->day(8)->Caption("paid");
        box->setGeometry(0, 250, 120, 24);
        window.setLocale(box->locale());
        window.show();
        window.activateWindow();
        calendar->setFocus();
        QApplication::processEvents();
    }
    Part& Of(QWidget* widget) { return *QAccessible::queryAccessibleInterface(widget); }
    Part& Day(int row, int column) { return *Of(calendar).tableInterface()->cellAt(row, column); }

    QWidget window;
    QPointer<Widget> calendar;
    QPointer<Box> box;
};

TEST_F(Access, TreeIsThatOfWhatIsShown) {
    auto tree = TreeOf(Of(calendar));
    EXPECT_EQ(tree.size(), 1u + 3 + 7 + 42);
    const std::pair<int, const char*> lines[] = {
        {-1, "Table | Departure, May 2024 |  |  | focused"},
        {1, "EditableText | Year | 2024 |  |"},
        {2, "SpinBox | Year | 2024 |  |"},
        {3, "ColumnHeader | Sunday |  |  |"},
        {10, "Cell | Sunday, April 28, 2024 |  |  | Press"},
        {20, "Cell | Wednesday, May 8, 2024 |  | paid | Press"},
        {27, "Cell | Wednesday, May 15, 2024 |  |  | selected focused Press"},
        {44, "Cell | Saturday, June 1, 2024 |  |  | disabled"}};
    for (const auto& [place, line] : lines) EXPECT_EQ(tree[place], line);
    EXPECT_EQ(Of(calendar).focusChild(), &Day(2, 3));
    EXPECT_EQ(Of(calendar).tableInterface()->selectedCells(), QList<Part*>{&Day(2, 3)});
    calendar->setDateMax(QDate(4000, 1, 1));
    calendar->setDateValue(QDate::currentDate());
    EXPECT_EQ(TextOf(*Of(calendar).focusChild(), QAccessible::Description), "today");

    const char* const kBox = "ComboBox | Arrival, 5/15/2024 | 5/15/2024 |  |";
    EXPECT_EQ(Described(Of(box)), std::string(kBox) + " collapsed ShowMenu Press");
    Of(box).actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_EQ(Described(Of(box)), std::string(kBox) + " focused expanded ShowMenu Press");
}

/// Its identifier then finds nothing.
TEST_F(Access, CellsEndWithTheirCalendar) {
    const QAccessible::Id cell = QAccessible::uniqueId(&Day(0, 0));
    QObject::connect(calendar, &Widget::dayChanged, calendar, [this] { delete calendar.data(); });
    Day(1, 1).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_FALSE(calendar);
    EXPECT_EQ(QAccessible::accessibleInterface(cell), nullptr);
}

}  // namespace
}  // namespace velmora
