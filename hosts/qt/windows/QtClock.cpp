#include "hosts/qt/windows/QtClock.h"

#include <QApplication>
#include <QEvent>
#include <QFileSystemWatcher>
#include <QPointer>
#include <QSocketNotifier>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <limits>
#include <vector>

#ifdef Q_OS_LINUX
#include <sys/timerfd.h>
#include <unistd.h>
#endif

namespace velmora {
namespace {

#ifdef Q_OS_LINUX
/// Hears when the system's clock is set and when the machine has slept, which Qt's timers do not
/// count, and when another time zone is chosen: then there is another file below /etc.
class ClockNews {
public:
    explicit ClockNews(const std::function<void()>& tell)
        : m_timer(timerfd_create(CLOCK_REALTIME, TFD_NONBLOCK | TFD_CLOEXEC)) {
        itimerspec never{};
        never.it_value.tv_sec = std::numeric_limits<time_t>::max();
        timerfd_settime(m_timer, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &never, nullptr);
        QObject::connect(&m_zone, &QFileSystemWatcher::directoryChanged, &m_zone, tell);
        QObject::connect(&m_set, &QSocketNotifier::activated, &m_set, [this, tell] {
            std::uint64_t expirations = 0;
            [[maybe_unused]] const auto size = read(m_timer, &expirations, sizeof expirations);
            tell();
        });
    }
    ClockNews(const ClockNews&) = delete;
    ClockNews& operator=(const ClockNews&) = delete;
    ~ClockNews() {
        m_set.setEnabled(false);
        close(m_timer);
    }

private:
    const int m_timer;
    QSocketNotifier m_set{m_timer, QSocketNotifier::Read};
    QFileSystemWatcher m_zone{{QStringLiteral("/etc")}};
};
#endif

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
#ifdef Q_OS_LINUX
    ClockNews m_news{[this] { Tell(); }};
#endif
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
