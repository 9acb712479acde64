#pragma once

#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include <memory>
#include <vector>

namespace velmora {

/// The controls for Qt Designer and for the loaders of its forms.
class DesignerPlugin : public QObject, public QDesignerCustomWidgetCollectionInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QDesignerCustomWidgetCollectionInterface_iid)
    Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)

public:
    DesignerPlugin();

    QList<QDesignerCustomWidgetInterface*> customWidgets() const override;

private:
    std::vector<std::unique_ptr<QDesignerCustomWidgetInterface>> m_controls;
};

}  // namespace velmora
