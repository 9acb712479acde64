#include "hosts/qt/pages/PropertyPageWidgets.h"

#include "VelmoraCalendar/QtConversions.h"
#include "hosts/qt/values/QtTranslation.h"
#include "proppages/PropertyPage.h"

#include <QApplication>
#include <QFormLayout>
#include <QMessageBox>

#include <exception>
#include <functional>
#include <string>
#include <vector>

namespace velmora {
namespace {

/// A row of the form; the control is the form's. The page fills a list while it is being made,
/// which is no edit.
PageControlRef AddField(QFormLayout& form, const FieldDefinition& field,
                        std::function<void()> edited) {
    const QString label = Translated(field.label);
    const auto add = [&](auto* control, auto signal, const QString& text) -> PageControlRef {
        control->setObjectName(ToQString(field.name));
        form.addRow(text, control);
        QObject::connect(control, signal, form.parentWidget(), edited);
        return control;
    };
    switch (field.kind) {
        case FieldKind::List: return add(new QtPageList, &QComboBox::currentIndexChanged, label);
        case FieldKind::CheckBox: return add(new QtPageCheckBox(label), &QCheckBox::toggled, {});
        default: return add(new QtPageText, &QLineEdit::textChanged, label);
    }
}

}  // namespace

void QtPageList::Items(std::span<const std::string_view> items) {
    clear();
    for (const std::string_view item : items) addItem(Translated(item));
}

void QtPageText::ForeColor(Rgb color) {
    QPalette colors;
    if (color != kValidText) colors.setColor(QPalette::Text, ToQColor(color));
    setPalette(colors);
}

PropertyPageWidget::PropertyPageWidget(const PageDefinition& definition, const Dates& dates)
    : m_definition(definition) {
    auto* const form = new QFormLayout(this);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    std::vector<PageControlRef> controls;
    for (std::size_t i = 0; i < definition.fields.size(); ++i) {
        controls.push_back(AddField(*form, definition.fields[i], [this, i] {
            if (m_page) m_page->OnEdited(i);
        }));
    }
    PageSite& site = *this;
    m_page = std::make_unique<PropertyPage>(definition, controls, site, dates);
}

PropertyPageWidget::~PropertyPageWidget() = default;

QString PropertyPageWidget::Title() const { return velmora::Translated(m_definition.title); }

std::string PropertyPageWidget::Translated(std::string_view text) const {
    return velmora::Translated(text).toStdString();
}

bool PropertyPageWidget::Apply() {
    try {
        return m_page->ApplyChanges();
    } catch (const std::exception& error) {
        MessageBox(Translated(error.what()));
        return false;
    }
}

void PropertyPageWidget::Changed(bool changed) {
    m_changed = changed;
    emit this->changed();
}

void PropertyPageWidget::MessageBox(const std::string& text) {
    QMessageBox box(QMessageBox::NoIcon, QApplication::applicationDisplayName(), ToQString(text),
                    QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

}  // namespace velmora
