#pragma once

#include <QAction>
#include <QtDesigner/QDesignerTaskMenuExtension>
#include <QtDesigner/QExtensionFactory>

namespace velmora {

/// "Properties..." in the context menu of a control on a form; a double click does the same.
class PropertiesTaskMenu : public QObject, public QDesignerTaskMenuExtension {
    Q_OBJECT
    Q_INTERFACES(QDesignerTaskMenuExtension)

public:
    PropertiesTaskMenu(QWidget& widget, QObject* parent);

    QAction* preferredEditAction() const override { return m_properties; }
    QList<QAction*> taskActions() const override { return {m_properties}; }

private:
    void ShowProperties();

    QWidget& m_widget;
    QAction* m_properties;
};

/// Makes the menus for calendars and date boxes.
class PropertiesTaskMenuFactory : public QExtensionFactory {
    Q_OBJECT

public:
    using QExtensionFactory::QExtensionFactory;

protected:
    QObject* createExtension(QObject* object, const QString& iid, QObject* parent) const override;
};

}  // namespace velmora
