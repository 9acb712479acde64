#include "hosts/qt/drawing/QtGdiObjects.h"

#include <QCoreApplication>

#include <algorithm>
#include <new>
#include <utility>

namespace velmora::gdi {
namespace {

constexpr std::size_t kMostScratchPixels = (16u << 20) / sizeof(std::uint32_t);
constexpr int kMostKeptPixels = 1 << 18;  // of a scaled picture

bool IsOpaque(const PixelImage& image) {
    return std::ranges::all_of(image.pixels, [](auto pixel) { return pixel >= 0xFF000000; });
}

QImage ToImage(const PixelImage& image) {
    const QImage straight(reinterpret_cast<const uchar*>(image.pixels.data()), image.width,
                          image.height, image.width * qsizetype{4}, QImage::Format_ARGB32);
    return straight.convertToFormat(IsOpaque(image) ? QImage::Format_RGB32
                                                    : QImage::Format_ARGB32_Premultiplied);
}

}  // namespace

std::uint32_t ToPixel(Rgb color) noexcept {
    return 0xFF000000 | (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}

Brush::Brush(Rgb rgb) noexcept : GdiObject(kKind), color(ToPixel(rgb)) {}

Pen::Pen(Rgb rgb) noexcept : GdiObject(kKind), color(ToPixel(rgb)) {}

PixelMemory::PixelMemory(std::size_t pixels) {
    SharedCaches::Block block = SharedCaches::Instance().TakeBlock(pixels);
    m_pixels = std::move(block.pixels);
    m_capacity = block.capacity;
}

PixelMemory::~PixelMemory() {
    SharedCaches::Instance().GiveBack({std::move(m_pixels), m_capacity});
}

Bitmap::Bitmap(int width, int height, double ratio)
    : GdiObject(kKind),
      m_memory(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)),
      m_ratio(ratio) {
    if (m_memory.Get() == nullptr) return;
    m_image = QImage(reinterpret_cast<uchar*>(m_memory.Get()), width, height, width * qsizetype{4},
                     QImage::Format_RGB32);
}

QPainter& Bitmap::Painter() {
    if (!m_painter) {
        m_painter = std::make_unique<QPainter>(&m_image);
        m_painter->setRenderHint(QPainter::SmoothPixmapTransform);
    }
    return *m_painter;
}

bool Bitmap::Enter() noexcept { return !std::exchange(m_entered, true); }

void Bitmap::Leave() {
    m_painter.reset();
    m_entered = false;
}

Picture::Picture(const std::shared_ptr<const PixelImage>& image)
    : GdiObject(kKind), m_origin(image), m_image(ToImage(*image)) {}

QImage Picture::Scaled(int width, int height) const {
    const QSize size(width, height);
    if (size == m_image.size()) return m_image;
    if (size == m_scaled.size()) return m_scaled;
    QImage scaled = m_image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                        .convertToFormat(m_image.format());
    if (width <= kMostKeptPixels / height) m_scaled = scaled;
    return scaled;
}

const StockObjects& StockObjects::Instance() {
    static const StockObjects objects;
    return objects;
}

bool StockObjects::Owns(const GdiObject* object) const noexcept {
    return object == &brush || object == &pen || object == &font || object == &noBitmap;
}

SharedCaches& SharedCaches::Instance() {
    static SharedCaches caches;
    // A second application object in the same process registers anew.
    if (!caches.m_clearsAtExit && QCoreApplication::instance() != nullptr) {
        caches.m_clearsAtExit = true;
        qAddPostRoutine(&SharedCaches::Clear);
    }
    return caches;
}

void SharedCaches::Clear() {
    SharedCaches& caches = Instance();
    caches.texts.Clear();
    caches.frames.Clear();
    caches.m_pictures.clear();
    caches.m_scratch = {};
    caches.m_clearsAtExit = false;
}

const Picture* SharedCaches::PictureOf(const StdPicture& picture) {
    const std::shared_ptr<const PixelImage>& image = picture.Image();
    const bool drawable =
        picture.Type() == PictureType::Bitmap || picture.Type() == PictureType::Icon;
    if (!drawable || !image || !image->IsDrawable()) return nullptr;
    const auto found = m_pictures.find(image.get());
    // A new image may have got the address of one that is gone.
    if (found != m_pictures.end() && !found->second->Expired()) return found->second.get();
    ForgetExpiredPictures();
    auto made = std::make_unique<const Picture>(image);
    if (made->Image().isNull()) return nullptr;
    return m_pictures.emplace(image.get(), std::move(made)).first->second.get();
}

void SharedCaches::ForgetExpiredPictures() {
    std::erase_if(m_pictures, [](const auto& entry) { return entry.second->Expired(); });
}

SharedCaches::Block SharedCaches::TakeBlock(std::size_t pixels) {
    if (m_scratch.capacity >= pixels) return std::exchange(m_scratch, Block{});
    return {std::unique_ptr<std::uint32_t[]>(new (std::nothrow) std::uint32_t[pixels]), pixels};
}

void SharedCaches::GiveBack(Block block) noexcept {
    if (block.pixels == nullptr || block.capacity > kMostScratchPixels) return;
    if (block.capacity > m_scratch.capacity) m_scratch = std::move(block);
}

}  // namespace velmora::gdi
