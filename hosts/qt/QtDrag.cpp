#include "hosts/qt/QtDrag.h"

#include "hosts/qt/QtConversions.h"

#include <QCoreApplication>
#include <QDrag>
#include <QMimeData>

#include <map>

namespace velmora {
namespace {

class HeldData final : public DataObject {
public:
    bool HasFormat(std::int16_t format) const override { return m_values.contains(format); }

    Variant GetData(std::int16_t format) const override {
        const auto found = m_values.find(format);
        return found == m_values.end() ? Variant() : found->second;
    }

    void SetData(std::int16_t format, const Variant& value) override { m_values[format] = value; }

private:
    std::map<std::int16_t, Variant> m_values;
};

Qt::DropActions ToActions(std::int32_t effects) {
    Qt::DropActions actions;
    actions.setFlag(Qt::CopyAction, (effects & kDropCopy) != 0);
    actions.setFlag(Qt::MoveAction, (effects & kDropMove) != 0);
    return actions;
}

std::int32_t ToEffect(Qt::DropAction action) {
    switch (action) {
        case Qt::CopyAction: return kDropCopy;
        case Qt::MoveAction:
        case Qt::TargetMoveAction: return kDropMove;
        default: return kDropNone;
    }
}

}  // namespace

DataRef MakeDataObject() { return std::make_shared<HeldData>(); }

std::int32_t RunDrag(const DataObject& data, std::int32_t allowedEffects) {
    const Qt::DropActions actions = ToActions(allowedEffects);
    const Variant value = data.GetData(kTextFormat);
    const auto* const text = value.As<std::string>();
    if (!text || actions == Qt::IgnoreAction) return kDropNone;
    // The source may be deleted by what the drop causes, and would take a drag of its own along.
    auto* const drag = new QDrag(QCoreApplication::instance());
    auto* const content = new QMimeData;
    content->setText(ToQString(*text));
    drag->setMimeData(content);
    return ToEffect(drag->exec(actions));
}

}  // namespace velmora
