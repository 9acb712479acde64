#include "hosts/qt/windows/QtDrag.h"

#include "VelmoraCalendar/QtConversions.h"
#include "platform/FontAndPicture.h"

#include <QCoreApplication>
#include <QDrag>
#include <QMimeData>
#include <QPointer>
#include <QUrl>
#include <QWidget>

#include <utility>

namespace velmora {
namespace {

struct Format {
    std::int16_t number;
    const char* mimeType;
};
constexpr Format kFormats[] = {{kTextFormat, "text/plain"},
                               {kBitmapFormat, "application/x-qt-image"},
                               {kFilesFormat, "text/uri-list"}};

std::string PathsOf(const QMimeData& content) {
    QStringList paths;
    for (const QUrl& url : content.urls()) {
        if (url.isLocalFile()) paths.push_back(url.toLocalFile());
    }
    return paths.join(u'\n').toStdString();
}

QVariantList UrlsOf(const QString& paths) {
    QVariantList urls;
    for (const QString& path : paths.split(u'\n', Qt::SkipEmptyParts)) {
        urls.push_back(QUrl::fromLocalFile(path));
    }
    return urls;
}

class WrappedMimeData final : public DataObject {
public:
    explicit WrappedMimeData(const QMimeData* content) : m_content(content) {}

    bool HasFormat(std::int16_t format) const override {
        if (!m_content) return false;
        switch (format) {
            case kTextFormat: return m_content->hasText();
            case kBitmapFormat: return m_content->hasImage();
            case kFilesFormat: return m_content->hasUrls();
            default: return false;
        }
    }

    Variant GetData(std::int16_t format) const override {
        if (!HasFormat(format)) return {};
        switch (format) {
            case kTextFormat: return m_content->text().toStdString();
            case kBitmapFormat: {
                const auto image = qvariant_cast<QImage>(m_content->imageData());
                return Variant(ObjectRef(ToPicture(image, PictureType::Bitmap)));
            }
            default: return PathsOf(*m_content);
        }
    }

    /// The source alone can change what it drags.
    void SetData(std::int16_t, const Variant&) override {}

private:
    const QPointer<const QMimeData> m_content;
};

/// A data object as its target sees it; data that are still missing are fetched when asked for.
class DragContent final : public QMimeData {
public:
    DragContent(DataRef data, std::function<void(DataRef, std::int16_t)> setData)
        : m_data(std::move(data)), m_setData(std::move(setData)) {}

    QStringList formats() const override {
        QStringList names;
        for (const Format& format : kFormats) {
            if (m_data->HasFormat(format.number)) names.push_back(format.mimeType);
        }
        return names;
    }

    bool hasFormat(const QString& mimeType) const override { return formats().contains(mimeType); }

protected:
    QVariant retrieveData(const QString& mimeType, QMetaType) const override {
        for (const Format& format : kFormats) {
            if (mimeType == format.mimeType) return ValueOf(format.number);
        }
        return {};
    }

private:
    QVariant ValueOf(std::int16_t format) const {
        if (!m_data->HasFormat(format)) return {};
        if (m_data->GetData(format) == Variant()) m_setData(m_data, format);
        const Variant value = m_data->GetData(format);
        if (const auto* const text = value.As<std::string>()) {
            const QString string = ToQString(*text);
            return format == kFilesFormat ? QVariant(UrlsOf(string)) : QVariant(string);
        }
        const auto* const object = value.As<ObjectRef>();
        return object ? ToQImage(std::dynamic_pointer_cast<StdPicture>(*object)) : QVariant();
    }

    const DataRef m_data;
    const std::function<void(DataRef, std::int16_t)> m_setData;
};

}  // namespace

Qt::DropActions ToActions(std::int32_t effects) {
    Qt::DropActions actions;
    actions.setFlag(Qt::CopyAction, (effects & kDropCopy) != 0);
    actions.setFlag(Qt::MoveAction, (effects & kDropMove) != 0);
    actions.setFlag(Qt::LinkAction, (effects & kDropLink) != 0);
    return actions;
}

std::int32_t ToEffects(Qt::DropActions actions) {
    return (actions.testFlag(Qt::CopyAction) ? kDropCopy : kDropNone) |
           (actions.testFlag(Qt::MoveAction) ? kDropMove : kDropNone) |
           (actions.testFlag(Qt::LinkAction) ? kDropLink : kDropNone);
}

DataRef WrapData(const QMimeData* content) { return std::make_shared<WrappedMimeData>(content); }

std::int32_t RunDrag(QWidget& source, const DataRef& data, std::int32_t allowedEffects,
                     const DragEvents& events) {
    const Qt::DropActions actions = ToActions(allowedEffects);
    auto content = std::make_unique<DragContent>(data, events.setData);
    if (content->formats().isEmpty() || actions == Qt::IgnoreAction) return kDropNone;
    // The source may be deleted by what the drop causes, and would take a drag of its own along.
    auto* const drag = new QDrag(QCoreApplication::instance());
    drag->setMimeData(content.release());
    QObject::connect(drag, &QDrag::actionChanged, &source, [&](Qt::DropAction action) {
        const QPointer<QWidget> widget(&source);
        const bool usual = events.giveFeedback(ToEffects(action));
        drag->setDragCursor(usual || !widget ? QPixmap() : widget->cursor().pixmap(), action);
    });
    return ToEffects(drag->exec(actions));
}

}  // namespace velmora
