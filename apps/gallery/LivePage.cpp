#include "apps/gallery/LivePage.h"

#include "apps/gallery/Decorations.h"
#include "apps/gallery/EventLog.h"
#include "apps/gallery/PropertyPanel.h"

#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

namespace velmora {
namespace {

QWidget* MakeEventColumn(VmCalendarWidget& calendar) {
    auto* column = new QWidget;
    auto* layout = new QVBoxLayout(column);
    auto* log = new EventLog;
    auto* clear = new QPushButton(QObject::tr("Clear"));
    layout->addWidget(new QLabel(QObject::tr("Events")));
    layout->addWidget(log);
    layout->addWidget(clear);
    QObject::connect(clear, &QPushButton::clicked, log, &EventLog::clear);
    log->Follow(calendar);
    return column;
}

}  // namespace

QWidget* MakeLivePage(QDate date) {
    auto* page = new QSplitter;
    auto* calendar = new VmCalendarWidget;
    calendar->setObjectName(QLatin1String(kLiveCalendar));
    calendar->setExtendedNavigation(true);
    calendar->setDateValue(date);
    calendar->setMinimumSize(280, 220);
    Adorn(*calendar);
    auto* column = new QSplitter(Qt::Vertical);
    column->addWidget(calendar);
    column->addWidget(MakeEventColumn(*calendar));
    page->addWidget(column);
    page->addWidget(new PropertyPanel(*calendar));
    for (QSplitter* const splitter : {page, column}) {
        splitter->setChildrenCollapsible(false);
        splitter->setStretchFactor(0, 1);
    }
    column->setSizes({430, 160});
    page->setSizes({700, 320});
    return page;
}

}  // namespace velmora
