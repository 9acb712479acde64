#include "hosts/qt/designer/DesignerPlugin.h"

#include "VelmoraCalendar/VmCalDropDownWidget.h"
#include "hosts/qt/designer/ControlIcons.h"
#include "hosts/qt/designer/PropertiesTaskMenu.h"
#include "hosts/qt/designer/PropertyGroups.h"
#include "hosts/qt/values/QtTranslation.h"

#include <QIcon>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QExtensionManager>

namespace velmora {
namespace {

struct Control {
    const char* className;
    const char* includeFile;
    const char* toolTip;
    const char* whatsThis;
    const char* dom;  // a new one on a form
    QIcon (*icon)();
    QWidget* (*make)(QWidget* parent);
};

constexpr Control kCalendar{
    "velmora::VmCalendarWidget",
    "<VelmoraCalendar/VmCalendarWidget.h>",
    "Month calendar",
    "A month calendar: the user picks a date with mouse or keyboard, the program gives single days "
    "colours, captions and pictures.",
    R"(<ui language="c++" displayname="Calendar">
  <widget class="velmora::VmCalendarWidget" name="calendar">
    <property name="geometry">
      <rect><x>0</x><y>0</y><width>250</width><height>200</height></rect>
    </property>
  </widget>
</ui>)",
    CalendarIcon,
    [](QWidget* parent) -> QWidget* { return new VmCalendarWidget(parent); },
};

/// A date format is no text to translate.
constexpr Control kDateBox{
    "velmora::VmCalDropDownWidget",
    "<VelmoraCalendar/VmCalDropDownWidget.h>",
    "Date box",
    "A date box: it shows a date as text and opens a month calendar below it.",
    R"(<ui language="c++" displayname="Date Box">
  <widget class="velmora::VmCalDropDownWidget" name="dateBox">
    <property name="geometry">
      <rect><x>0</x><y>0</y><width>121</width><height>24</height></rect>
    </property>
  </widget>
  <customwidgets>
    <customwidget>
      <class>velmora::VmCalDropDownWidget</class>
      <propertyspecifications>
        <stringpropertyspecification name="dateFormat" type="singleline" notr="true"/>
      </propertyspecifications>
    </customwidget>
  </customwidgets>
</ui>)",
    DateBoxIcon,
    [](QWidget* parent) -> QWidget* { return new VmCalDropDownWidget(parent); },
};

class ControlInterface final : public QDesignerCustomWidgetInterface {
public:
    /// `setUp` is what the first of the interfaces does for all of them.
    ControlInterface(const Control& control, void (*setUp)(QDesignerFormEditorInterface&))
        : m_control(control), m_setUp(setUp) {}

    QString name() const override { return QString::fromLatin1(m_control.className); }
    QString group() const override { return QStringLiteral("Velmora Calendar"); }
    QString toolTip() const override { return Translated(m_control.toolTip); }
    QString whatsThis() const override { return Translated(m_control.whatsThis); }
    QString includeFile() const override { return QString::fromLatin1(m_control.includeFile); }
    QString domXml() const override { return QString::fromLatin1(m_control.dom); }
    QIcon icon() const override { return m_control.icon(); }
    bool isContainer() const override { return false; }
    QWidget* createWidget(QWidget* parent) override { return m_control.make(parent); }

    /// Once for every form editor of the program.
    void initialize(QDesignerFormEditorInterface* core) override {
        if (m_setUp) m_setUp(*core);
    }

private:
    const Control& m_control;
    void (*m_setUp)(QDesignerFormEditorInterface&);
};

void Initialize(QDesignerFormEditorInterface& core) {
    QExtensionManager* const manager = core.extensionManager();
    manager->registerExtensions(new PropertiesTaskMenuFactory(manager),
                                Q_TYPEID(QDesignerTaskMenuExtension));
    GroupProperties(core);
}

}  // namespace

DesignerPlugin::DesignerPlugin() {
    m_controls.push_back(std::make_unique<ControlInterface>(kCalendar, Initialize));
    m_controls.push_back(std::make_unique<ControlInterface>(kDateBox, nullptr));
}

QList<QDesignerCustomWidgetInterface*> DesignerPlugin::customWidgets() const {
    QList<QDesignerCustomWidgetInterface*> controls;
    for (const auto& control : m_controls) controls += control.get();
    return controls;
}

}  // namespace velmora
