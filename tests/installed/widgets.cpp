#include <VelmoraCalendar/PropertyPageDialog.h>
#include <VelmoraCalendar/VmCalDropDownWidget.h>
#include <calendar/VmCalendar.h>

#include <QFile>
#include <QTest>
#include <QUiLoader>

#include <memory>

using namespace velmora;

/// What a program of others does with the installed widgets.
class Outside : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void loadedFormHasTheProgramsClasses() {
#ifndef VELMORA_QT_SHARED
        QSKIP("a plug-in with the static library has classes of its own");
#endif
        QFile file(QStringLiteral(FORM));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const std::unique_ptr<QWidget> form(QUiLoader().load(&file));
        auto* const calendar = form->findChild<VmCalendarWidget*>();
        auto* const box = form->findChild<VmCalDropDownWidget*>();
        QVERIFY(calendar && box);
        QVERIFY(PropertyPageDialog::Open(*calendar) && PropertyPageDialog::Open(*box));
        calendar->calendar().LetMember("ShowWeekend", Variant(false));
        QVERIFY(!calendar->showWeekend());
        try {
            calendar->calendar().LetMember("Appearance", Variant(7));
            QFAIL("not refused");
        } catch (const AutomationError& error) {
            QCOMPARE(error.Number(), ErrorNumber::InvalidPropertyValue);
        }
    }
};

QTEST_MAIN(Outside)
#include "widgets.moc"
