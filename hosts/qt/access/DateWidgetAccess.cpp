#include "hosts/qt/access/DateWidgetAccess.h"

#include <QWidget>

namespace velmora {

void DateWidgetAccess::TellReaders(QWidget& widget) {
    if (!QAccessible::isActive()) return;
    const auto tell = [&widget] {
        auto* const access =
            dynamic_cast<DateWidgetAccess*>(QAccessible::queryAccessibleInterface(&widget));
        if (access) access->TellNews();
    };
    QMetaObject::invokeMethod(&widget, tell, Qt::QueuedConnection);
}

}  // namespace velmora
