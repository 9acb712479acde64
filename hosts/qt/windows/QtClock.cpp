#include "hosts/qt/windows/QtClock.h"

#include <QApplication>
#include <QEvent>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <vector>

namespace velmora {
namespace {

/// The calendars that are to be seen, and the timer that they share.
class Shown final : public QObject {
public:
    /// Null once the application object has ended.
    static Shown* Shared() {
        static QPointer<Shown> shared;
        if (!shared && qApp) shared = new Shown;
        return shared;
    }

    void Add(VmCalendar& calendar) {
        Remove(calendar);
        m_calendars.push_back(&calendar);
        Tell();
    }

    void Remove(VmCalendar& calendar) {
        std::erase(m_calendars, &calendar);
        if (m_calendars.empty()) m_timer.stop();
    }

private:
    Shown() : QObject(qApp) {
        m_timer.setSingleShot(true);
        connect(&m_timer, &QTimer::timeout, this, &Shown::Tell);
        connect(qApp, &QGuiApplication::applicationStateChanged, this, &Shown::Tell);
    }

    void Tell() {
        if (m_calendars.empty()) return;
        auto wait = std::chrono::milliseconds::max();
        for (VmCalendar* const calendar : m_calendars) wait = std::min(wait, calendar->OnClock());
        m_timer.start(wait);
    }

    QTimer m_timer;
    std::vector<VmCalendar*> m_calendars;
};

}  // namespace

QtClock::QtClock(QWidget& window, VmCalendar& calendar) : m_calendar(calendar) {
    window.installEventFilter(this);
}

QtClock::~QtClock() {
    if (Shown* const shown = Shown::Shared()) shown->Remove(m_calendar);
}

bool QtClock::eventFilter(QObject*, QEvent* event) {
    Shown* const shown = Shown::Shared();
    if (shown && event->type() == QEvent::Show) shown->Add(m_calendar);
    if (shown && event->type() == QEvent::Hide) shown->Remove(m_calendar);
    return false;
}

}  // namespace velmora
