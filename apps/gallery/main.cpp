#include "apps/gallery/GalleryWindow.h"
#include "apps/gallery/LivePage.h"
#include "apps/gallery/Pages.h"
#include "apps/gallery/SavedSettings.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QLocale>
#include <QSysInfo>
#include <QTimer>
#include <QTranslator>

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace velmora {
namespace {

enum ExitCode { kSuccess = 0, kFailure = 1, kUsage = 2 };

bool HasDisplay() {
    return QSysInfo::kernelType() != QLatin1String("linux") ||
           !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

/// Pictures need no display, and look the same with and without one.
void ChoosePlatform(int argc, char** argv) {
    if (!qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) return;
    const bool pictures = std::any_of(argv, argv + argc, [](std::string_view argument) {
        return argument.starts_with("--pictures");
    });
    if (pictures || !HasDisplay()) qputenv("QT_QPA_PLATFORM", "offscreen");
}

/// In the same month, so that both the selection and today can be seen.
QDate DayBesideToday() {
    const QDate today = QDate::currentDate();
    return today.addDays(today.day() > 3 ? -3 : 3);
}

struct Arguments {
    QString pictures;  // folder; empty opens the window
    QString settings;  // file
    int page = 0;
    QDate date;
};

int Refuse(const QString& problem) {
    std::fprintf(stderr, "velmora-gallery: %s\n", qPrintable(problem));
    return kUsage;
}

void Report(const QString& problem) {
    if (!problem.isEmpty()) std::fprintf(stderr, "velmora-gallery: %s\n", qPrintable(problem));
}

/// The live page is as it was left the last time, however the program ended.
int ShowWindow(GalleryWindow& window, const SavedSettings& settings) {
    auto* const calendar = window.findChild<VmCalendarWidget*>(QLatin1String(kLiveCalendar));
    Report(settings.Load(*calendar));
    QTimer saving;
    saving.setSingleShot(true);
    saving.setInterval(500);
    QObject::connect(calendar, &VmCalendarWidget::propertyChanged, &saving,
                     qOverload<>(&QTimer::start));
    QObject::connect(&saving, &QTimer::timeout, [&] { Report(settings.Save(*calendar)); });
    window.show();
    const int result = QApplication::exec();
    if (saving.isActive()) Report(settings.Save(*calendar));
    return result;
}

int Run(const Arguments& arguments) {
    GalleryWindow window(arguments.date);
    window.ShowPage(arguments.page);
    if (arguments.pictures.isEmpty()) return ShowWindow(window, SavedSettings(arguments.settings));
    if (const QString failed = window.WritePictures(arguments.pictures); !failed.isEmpty()) {
        std::fprintf(stderr, "velmora-gallery: cannot write %s\n", qPrintable(failed));
        return kFailure;
    }
    std::printf("The gallery's pages are in %s\n", qPrintable(arguments.pictures));
    return kSuccess;
}

/// The options of the command line; ends the program by itself for --help and for unknown ones.
class Options {
public:
    Options() {
        m_parser.setApplicationDescription(
            QStringLiteral("Shows the VelmoraCalendar controls. Pages: %1.").arg(PageNames()));
        m_parser.addHelpOption();
        m_parser.addOptions({m_pictures, m_page, m_date, m_settings});
        m_parser.process(*QCoreApplication::instance());
    }

    QString Pictures() const { return m_parser.value(m_pictures); }
    QString PageName() const { return m_parser.value(m_page); }
    QString DateText() const { return m_parser.value(m_date); }
    QString Settings() const { return m_parser.value(m_settings); }

private:
    static QString PageNames() {
        QStringList names;
        for (const Page& page : Pages()) names += QString::fromLatin1(page.name);
        return names.join(QStringLiteral(", "));
    }

    QCommandLineParser m_parser;
    QCommandLineOption m_pictures{QStringLiteral("pictures"),
                                  QStringLiteral("Write every page as a PNG file and end."),
                                  QStringLiteral("folder")};
    QCommandLineOption m_page{QStringLiteral("page"), QStringLiteral("Begin with that page."),
                              QStringLiteral("name"), QString::fromLatin1(Pages().front().name)};
    QCommandLineOption m_date{QStringLiteral("date"),
                              QStringLiteral("Select that date, not the one beside today."),
                              QStringLiteral("yyyy-mm-dd"), DayBesideToday().toString(Qt::ISODate)};
    QCommandLineOption m_settings{
        QStringLiteral("settings"),
        QStringLiteral("Keep the live calendar's properties in that file."), QStringLiteral("file"),
        SavedSettings::UsualPath()};
};

/// The widgets' texts in the user's language, where they are known in it.
int Main() {
    QTranslator texts;
    if (texts.load(QLocale(), QStringLiteral("velmora_calendar"), QStringLiteral("_"),
                   QStringLiteral(":/translations"))) {
        QCoreApplication::installTranslator(&texts);
    }
    const Options options;
    Arguments arguments{options.Pictures(), options.Settings(), PageIndex(options.PageName()),
                        QDate::fromString(options.DateText(), Qt::ISODate)};
    if (arguments.page < 0) return Refuse(QStringLiteral("no page ") + options.PageName());
    if (!arguments.date.isValid()) {
        return Refuse(options.DateText() + QStringLiteral(" is no date"));
    }
    if (arguments.pictures.isEmpty() &&
        QGuiApplication::platformName() == QLatin1String("offscreen")) {
        arguments.pictures = QStringLiteral("gallery-pictures");
        std::fprintf(stderr, "velmora-gallery: no display, writing the pages as pictures to %s\n",
                     qPrintable(arguments.pictures));
    }
    return Run(arguments);
}

}  // namespace
}  // namespace velmora

int main(int argc, char** argv) {
    velmora::ChoosePlatform(argc, argv);
    QApplication application(argc, argv);
    return velmora::Main();
}
