// A form made in Qt Designer, compiled into the program; with --load FILE.ui it is read while the
// program runs, for which QT_PLUGIN_PATH has to lead to the plug-in. --picture FILE.png writes a
// picture of the form instead of showing it.
#include "ui_appointment.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFile>
#include <QUiLoader>

#include <memory>

namespace {

std::unique_ptr<QWidget> Compiled() {
    auto form = std::make_unique<QWidget>();
    Ui::Appointment controls;
    controls.setupUi(form.get());
    QObject::connect(
        controls.calendar, &velmora::VmCalendarWidget::dateValueChanged, controls.dateBox,
        [box = controls.dateBox](QDate date) { box->setDateValue(QDateTime(date, QTime(9, 0))); });
    return form;
}

std::unique_ptr<QWidget> Loaded(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return nullptr;
    return std::unique_ptr<QWidget>(QUiLoader().load(&file));
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOptions({{"load", "Read that form.", "file.ui"},
                       {"picture", "Write a picture of the form.", "file.png"}});
    parser.process(application);

    const auto form = parser.isSet("load") ? Loaded(parser.value("load")) : Compiled();
    if (!form) return 1;
    if (parser.isSet("picture")) return form->grab().save(parser.value("picture")) ? 0 : 1;
    form->show();
    return QApplication::exec();
}
