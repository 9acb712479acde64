#include "VelmoraCalendar/PropertyPageDialog.h"

#include "VelmoraCalendar/QtConversions.h"
#include "VelmoraCalendar/VmCalDropDownWidget.h"
#include "dropdown/VmCalDropDown.h"
#include "hosts/qt/pages/PropertyPageWidgets.h"
#include "hosts/qt/values/QtLocale.h"
#include "hosts/qt/values/QtTranslation.h"
#include "platform/dates/Dates.h"
#include "proppages/PropertyPage.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include <utility>

namespace velmora {

PropertyPageDialog::PropertyPageDialog(const QLocale& locale, QWidget* parent)
    : QDialog(parent),
      m_dates(std::make_unique<Dates>(DateLocaleOf(locale), LocalNow)),
      m_general(std::make_unique<PropertyPageWidget>(kGeneralPP, *m_dates)),
      m_dropDown(std::make_unique<PropertyPageWidget>(kDropDownPP, *m_dates)),
      m_days(std::make_unique<PropertyPageWidget>(kDayPP, *m_dates)),
      m_tabs(new QTabWidget(this)),
      m_buttons(new QDialogButtonBox(
          QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Apply, this)) {
    setWindowTitle(Translated("Properties"));
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs);
    layout->addWidget(m_buttons);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &PropertyPageDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &PropertyPageDialog::reject);
    connect(m_buttons->button(QDialogButtonBox::Apply), &QPushButton::clicked, this,
            &PropertyPageDialog::Apply);
    for (const auto* const page : {&m_general, &m_dropDown, &m_days}) {
        connect(page->get(), &PropertyPageWidget::changed, this, &PropertyPageDialog::ShowChanged);
    }
    SelectionChanged({});
}

PropertyPageDialog::~PropertyPageDialog() = default;

void PropertyPageDialog::SelectionChanged(std::span<AutomationObject* const> selected) {
    m_selected.assign(selected.begin(), selected.end());
    m_tabs->clear();
    m_tabs->addTab(m_general.get(), m_general->Title());
    if (m_selected.empty() || m_selected.front()->TypeName() != "VmCalendar") {
        m_tabs->addTab(m_dropDown.get(), m_dropDown->Title());
    }
    m_tabs->addTab(m_days.get(), m_days->Title());
    Reload();
}

/// The pages that are not shown let go of the object as well.
void PropertyPageDialog::Reload() {
    for (const auto* const page : {&m_general, &m_dropDown, &m_days}) {
        const bool isShown = m_tabs->indexOf(page->get()) >= 0;
        (*page)->Page().SelectionChanged(isShown ? std::span<AutomationObject* const>(m_selected)
                                                 : std::span<AutomationObject* const>());
    }
}

void PropertyPageDialog::ShowChanged() {
    m_buttons->button(QDialogButtonBox::Apply)
        ->setEnabled(m_general->IsChanged() || m_dropDown->IsChanged() || m_days->IsChanged());
}

/// The object may have moved what it was given, as a date to the end of its month: afterwards the
/// pages show what it has. What it has refused stays to be corrected.
bool PropertyPageDialog::Apply() {
    int toShow = m_tabs->currentIndex();
    bool complete = true;
    for (int i = 0; i < m_tabs->count(); ++i) {
        auto& page = static_cast<PropertyPageWidget&>(*m_tabs->widget(i));
        if (!page.IsChanged()) continue;
        m_tabs->setCurrentIndex(i);
        if (page.Apply()) continue;
        if (std::exchange(complete, false)) toShow = i;
    }
    m_tabs->setCurrentIndex(toShow);
    emit applied();
    if (complete) Reload();
    return complete;
}

void PropertyPageDialog::accept() {
    if (Apply()) QDialog::accept();
}

PropertyPageDialog* PropertyPageDialog::Open(QWidget& control) {
    AutomationObject* const object = AutomationOf(control);
    if (!object) return nullptr;
    auto* const dialog = new PropertyPageDialog(control.locale(), control.window());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->SelectionChanged(std::span(&object, 1));
    connect(&control, &QObject::destroyed, dialog, [dialog] {
        dialog->SelectionChanged({});
        dialog->reject();
    });
    dialog->open();
    return dialog;
}

AutomationObject* AutomationOf(QWidget& widget) {
    if (auto* const calendar = qobject_cast<VmCalendarWidget*>(&widget)) {
        return &calendar->calendar();
    }
    if (auto* const box = qobject_cast<VmCalDropDownWidget*>(&widget)) return &box->dropDownBox();
    return nullptr;
}

}  // namespace velmora
