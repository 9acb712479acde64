#include "hosts/qt/designer/PropertiesTaskMenu.h"

#include "VelmoraCalendar/PropertyPageDialog.h"
#include "hosts/qt/designer/DesignedControl.h"
#include "hosts/qt/values/QtTranslation.h"

#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QExtensionManager>

#include <memory>

namespace velmora {

PropertiesTaskMenu::PropertiesTaskMenu(QWidget& widget, QObject* parent)
    : QObject(parent),
      m_widget(widget),
      m_properties(new QAction(Translated("Properties..."), this)) {
    connect(m_properties, &QAction::triggered, this, &PropertiesTaskMenu::ShowProperties);
}

/// Modal for all of Designer, so that the control stays on its form meanwhile.
void PropertiesTaskMenu::ShowProperties() {
    auto* const form = QDesignerFormWindowInterface::findFormWindow(&m_widget);
    if (!form) return;
    const auto control = std::make_shared<DesignedControl>(*form, m_widget);
    AutomationObject* const selected = control.get();
    auto* const dialog = new PropertyPageDialog(m_widget.locale(), form->window());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setModal(true);
    dialog->SelectionChanged(std::span(&selected, 1));
    connect(dialog, &PropertyPageDialog::applied, dialog, [control] { control->EndCommand(); });
    dialog->show();
}

QObject* PropertiesTaskMenuFactory::createExtension(QObject* object, const QString& iid,
                                                    QObject* parent) const {
    auto* const widget = qobject_cast<QWidget*>(object);
    if (iid != Q_TYPEID(QDesignerTaskMenuExtension) || !widget || !AutomationOf(*widget)) {
        return nullptr;
    }
    return new PropertiesTaskMenu(*widget, parent);
}

}  // namespace velmora
