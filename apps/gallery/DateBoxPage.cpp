#include "apps/gallery/DateBoxPage.h"

#include "VelmoraCalendar/VmCalDropDownWidget.h"
#include "apps/gallery/Decorations.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>

namespace velmora {
namespace {

using Box = VmCalDropDownWidget;
constexpr int kMostLines = 200;

struct Row {
    const char* title;
    void (*prepare)(Box& box);
};

void ShowArrows(Box& box) { box.setMonthYearSelStyle(Box::MonthSelArrows); }

void Limit(Box& box) {
    const QDate date = box.dateValue().date();
    box.setDateMin(date.addMonths(-1));
    box.setDateMax(date.addMonths(1));
    ShowArrows(box);
}

void ChooseOwnLook(Box& box) {
    box.setComboFont(QFont(box.font().family(), 14, QFont::Bold));
    box.setDropDownAppearance(VmCalendarWidget::Flat);
    box.setDayAppearance(VmCalendarWidget::Flat);
    box.setMonthAppearance(VmCalendarWidget::Flat);
    box.setWeekDayAppearance(VmCalendarWidget::Flat);
    box.setDropDownWidth(420);
    box.setDropDownHeight(320);
}

constexpr Row kRows[] = {
    {"Short date", [](Box&) {}},
    {"Long date", [](Box& box) { box.setDateFormat(QStringLiteral("Long Date")); }},
    {"Own format, arrows",
     [](Box& box) {
         box.setObjectName(QLatin1String(kOpenedInPicture));
         box.setDateFormat(QStringLiteral("ddd d mmm yyyy"));
         ShowArrows(box);
     }},
    {"Opens at its right edge", [](Box& box) { box.setDropDownAlignment(Box::RightJustified); }},
    {"Work week", [](Box& box) { box.setShowWeekend(false); }},
    {"Three months to choose from", Limit},
    {"Decorated days",
     [](Box& box) {
         ShowArrows(box);
         box.setDropDownWidth(420);
         box.setDropDownHeight(340);
         Decorate(box);
     }},
    {"Own font, flat, larger calendar", ChooseOwnLook},
    {"Disabled", [](Box& box) { box.setEnabled(false); }},
    {"Refuses to open",
     [](Box& box) {
         QObject::connect(&box, &Box::dropDown, &box,
                          [](VmDropDownArguments* opening) { opening->setCancel(true); });
     }},
};

void Follow(QListWidget& log, Box& box, const QString& title) {
    const auto add = [&log, title](const QString& event) {
        if (log.count() == kMostLines) delete log.takeItem(0);
        log.addItem(title + QStringLiteral(": ") + event);
        log.scrollToBottom();
    };
    const auto number = [add](const char* event) {
        return [add, event](int value) { add(QStringLiteral("%1 %2").arg(event).arg(value)); };
    };
    QObject::connect(&box, &Box::dropDown, &log, [add] { add(QStringLiteral("dropDown")); });
    QObject::connect(&box, &Box::closeUp, &log, [add] { add(QStringLiteral("closeUp")); });
    QObject::connect(&box, &Box::dateChanged, &log, [add](QDate date) {
        add(QStringLiteral("dateChanged ") + date.toString(Qt::ISODate));
    });
    QObject::connect(&box, &Box::dayChanged, &log, number("dayChanged"));
    QObject::connect(&box, &Box::monthChanged, &log, number("monthChanged"));
    QObject::connect(&box, &Box::yearChanged, &log, number("yearChanged"));
}

}  // namespace

QWidget* MakeDateBoxPage(QDate date) {
    auto* page = new QWidget;
    auto* columns = new QHBoxLayout(page);
    auto* form = new QFormLayout;
    auto* log = new QListWidget;
    form->setVerticalSpacing(14);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    for (const Row& row : kRows) {
        auto* box = new Box;
        box->setKeepDropDownOnScreen(true);
        box->setExtendedNavigation(true);
        box->setDateValue(QDateTime(date, QTime(0, 0)));
        box->setMinimumWidth(260);
        row.prepare(*box);
        const QString title = QObject::tr(row.title);
        Follow(*log, *box, title);
        form->addRow(title, box);
    }
    log->setSelectionMode(QAbstractItemView::NoSelection);
    columns->addLayout(form, 1);
    columns->addWidget(log, 1);
    return page;
}

}  // namespace velmora
