#include <VelmoraCalendar/PropertyPageDialog.h>
#include <VelmoraCalendar/VmCalDropDownWidget.h>
#include <calendar/VmCalendar.h>

#include <QDataWidgetMapper>
#include <QFile>
#include <QItemEditorFactory>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
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

    void modelsShowAndTakeTheDate() {
        const QDate first(2024, 5, 15), second(2024, 6, 7);
        QStandardItemModel model(1, 1);
        const QModelIndex cell = model.index(0, 0);
        model.setData(cell, first);
        VmCalDropDownWidget box;
        box.setDateValue(QDateTime(second, QTime(9, 30)));
        QDataWidgetMapper mapper;
        mapper.setModel(&model);
        mapper.addMapping(&box, 0);
        mapper.toFirst();
        QCOMPARE(box.dateValue(), QDateTime(first, QTime(9, 30)));
        box.setDate(second);
        QVERIFY(mapper.submit());
        QCOMPARE(cell.data().toDate(), second);

        QItemEditorFactory editors;
        editors.registerEditor(QMetaType::QDate,
                               new QStandardItemEditorCreator<VmCalDropDownWidget>);
        QStyledItemDelegate delegate;
        delegate.setItemEditorFactory(&editors);
        const std::unique_ptr<QWidget> editor(delegate.createEditor(nullptr, {}, cell));
        delegate.setEditorData(editor.get(), cell);
        auto* const inCell = qobject_cast<VmCalDropDownWidget*>(editor.get());
        QCOMPARE(inCell->date(), second);
        inCell->setDate(first);
        delegate.setModelData(inCell, &model, cell);
        QCOMPARE(cell.data().toDate(), first);
    }

    void signalsTellWhatASpyReads() {
        VmCalDropDownWidget box;
        box.setDate(QDate(2024, 5, 15));
        QStringList told;
        const auto tell = [&](const char* what) { return [&told, what] { told += what; }; };
        connect(&box, &VmCalDropDownWidget::dropDown, [&](VmDropDownArguments* opening) {
            told += QStringLiteral("cancel ") + opening->property("cancel").toString();
        });
        connect(&box, &VmCalDropDownWidget::dropDownStateChanged, tell("state"));
        connect(&box, &VmCalDropDownWidget::closeUp, tell("closeUp"));
        connect(&box, &VmCalDropDownWidget::keyDown, [](VmKeyArguments* key) {
            if (key->keyCode() == 0x25) key->setProperty("keyCode", 0x27);  // left is right
        });
        QSignalSpy keys(&box, &VmCalDropDownWidget::keyDown);
        QSignalSpy names(&box, &VmCalDropDownWidget::propertyChanged);
        QTest::keyClick(&box, Qt::Key_Left);
        QCOMPARE(box.date(), QDate(2024, 5, 16));
        QVERIFY(keys.at(0).at(0).canConvert<QObject*>());
        QCOMPARE(names.at(0).at(0).toString(), "dateValue");
        QTest::keyClick(&box, Qt::Key_F4);
        QVERIFY(box.dropDownState());
        QTest::keyClick(&box, Qt::Key_Escape);
        QCOMPARE(told, (QStringList{"cancel false", "state", "state", "closeUp"}));
    }
};

QTEST_MAIN(Outside)
#include "widgets.moc"
