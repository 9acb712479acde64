#include "hosts/qt/designer/PropertyGroups.h"

#include "VelmoraCalendar/PropertyPageDialog.h"
#include "proppages/PropertyGroups.h"

#include <QMetaProperty>
#include <QWidget>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>
#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QExtensionManager>

namespace velmora {
namespace {

QString GroupNameOf(QLatin1String property) {
    const std::string_view name =
        kPropertyGroups[GroupOf({property.data(), std::size_t(property.size())})];
    return QLatin1String(name.data(), int(name.size()));
}

void Group(QExtensionManager& manager, QWidget& widget) {
    auto* const sheet = qt_extension<QDesignerPropertySheetExtension*>(&manager, &widget);
    if (!sheet || !AutomationOf(widget)) return;
    const QMetaObject& type = *widget.metaObject();
    for (int i = QWidget::staticMetaObject.propertyCount(); i < type.propertyCount(); ++i) {
        const QLatin1String name(type.property(i).name());
        if (const int index = sheet->indexOf(name); index >= 0) {
            sheet->setPropertyGroup(index, GroupNameOf(name));
        }
    }
}

}  // namespace

void GroupProperties(QDesignerFormEditorInterface& core) {
    const QDesignerFormWindowManagerInterface* const forms = core.formWindowManager();
    QExtensionManager* const manager = core.extensionManager();
    QObject::connect(forms, &QDesignerFormWindowManagerInterface::formWindowAdded, manager,
                     [manager](QDesignerFormWindowInterface* form) {
                         QObject::connect(form, &QDesignerFormWindowInterface::widgetManaged,
                                          manager,
                                          [manager](QWidget* widget) { Group(*manager, *widget); });
                     });
}

}  // namespace velmora
