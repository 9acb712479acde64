#include "hosts/qt/designer/DesignedControl.h"

#include "VelmoraCalendar/PropertyPageDialog.h"
#include "VelmoraCalendar/QtConversions.h"
#include "VelmoraCalendar/VmCalDropDownWidget.h"
#include "dropdown/VmCalDropDown.h"
#include "hosts/qt/values/QtNames.h"
#include "hosts/qt/values/QtTranslation.h"
#include "platform/stores/MemoryBag.h"

#include <QVariant>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerPropertyEditorInterface>

#include <memory>
#include <utility>

namespace velmora {
namespace {

template <class Control>
void CopyProperties(const Control& from, Control& to) {
    MemoryBag bag;
    from.WriteProps(bag);
    to.ReadProps(bag);
}

/// A copy on which a value can be tried.
std::unique_ptr<QWidget> DraftOf(QWidget& widget) {
    if (auto* const calendar = qobject_cast<VmCalendarWidget*>(&widget)) {
        auto draft = std::make_unique<VmCalendarWidget>();
        draft->setLocale(widget.locale());
        CopyProperties(calendar->calendar(), draft->calendar());
        return draft;
    }
    auto draft = std::make_unique<VmCalDropDownWidget>();
    draft->setLocale(widget.locale());
    CopyProperties(static_cast<VmCalDropDownWidget&>(widget).dropDownBox(), draft->dropDownBox());
    return draft;
}

/// The pages show days only: writing back the day that they have shown must not fix the present
/// time of day in the form.
bool IsSame(const QVariant& wanted, const QVariant& current) {
    if (wanted.metaType().id() != QMetaType::QDateTime) return wanted == current;
    const QDateTime moment = wanted.toDateTime();
    return moment == current.toDateTime() ||
           moment == QDateTime(current.toDateTime().date(), QTime(0, 0));
}

}  // namespace

DesignedControl::DesignedControl(QDesignerFormWindowInterface& form, QWidget& widget)
    : m_form(form), m_widget(widget), m_control(*AutomationOf(widget)) {}

DesignedControl::~DesignedControl() { EndCommand(); }

std::string_view DesignedControl::TypeName() const { return m_control.TypeName(); }

Variant DesignedControl::GetMember(std::string_view name) const {
    return m_control.GetMember(name);
}

void DesignedControl::LetMember(std::string_view name, const Variant& value) {
    const std::unique_ptr<QWidget> draft = DraftOf(m_widget);
    AutomationOf(*draft)->LetMember(name, value);
    const QByteArray property = QtNameOf(name);
    const QVariant wanted = draft->property(property);
    if (IsSame(wanted, m_widget.property(property))) return;
    if (!std::exchange(m_inCommand, true)) {
        m_form.beginCommand(Translated("Properties of '%1'").arg(m_widget.objectName()));
    }
    m_form.cursor()->setWidgetProperty(&m_widget, QString::fromLatin1(property), wanted);
}

void DesignedControl::EndCommand() {
    if (!std::exchange(m_inCommand, false)) return;
    m_form.endCommand();
    if (auto* const editor = m_form.core()->propertyEditor()) editor->setObject(&m_widget);
}

}  // namespace velmora
