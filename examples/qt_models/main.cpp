// Appointments in a table: the date box edits a date in its cell, and in the form below the table.
#include <VelmoraCalendar/VmCalDropDownWidget.h>

#include <QApplication>
#include <QDataWidgetMapper>
#include <QHeaderView>
#include <QItemEditorFactory>
#include <QLineEdit>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QVBoxLayout>

using DateBox = velmora::VmCalDropDownWidget;

int main(int argc, char** argv) {
    const QApplication application(argc, argv);

    QStandardItemModel appointments(3, 2);
    appointments.setHorizontalHeaderLabels({"What", "When"});
    const char* const subjects[] = {"Dentist", "Concert", "Holidays"};
    for (int row = 0; row < appointments.rowCount(); ++row) {
        appointments.setData(appointments.index(row, 0), subjects[row]);
        appointments.setData(appointments.index(row, 1), QDate::currentDate().addDays(9 * row));
    }

    QItemEditorFactory editors;  // of the values of a model, by their types
    editors.registerEditor(QMetaType::QDate, new QStandardItemEditorCreator<DateBox>);
    QStyledItemDelegate delegate;
    delegate.setItemEditorFactory(&editors);

    QWidget window;
    auto* const table = new QTableView;
    table->setModel(&appointments);
    table->setItemDelegate(&delegate);
    table->horizontalHeader()->setStretchLastSection(true);
    auto* const subject = new QLineEdit;
    auto* const date = new DateBox;
    date->setDateFormat("Long Date");
    auto* const layout = new QVBoxLayout(&window);
    for (QWidget* const part : {static_cast<QWidget*>(table), static_cast<QWidget*>(subject),
                                static_cast<QWidget*>(date)}) {
        layout->addWidget(part);
    }

    QDataWidgetMapper form;
    form.setModel(&appointments);
    form.addMapping(subject, 0);
    form.addMapping(date, 1);
    QObject::connect(table->selectionModel(), &QItemSelectionModel::currentRowChanged, &form,
                     &QDataWidgetMapper::setCurrentModelIndex);
    table->selectRow(0);

    window.show();
    return QApplication::exec();
}
