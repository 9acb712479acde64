#pragma once

#include "platform/Values.h"

#include <QImage>

#include <cstdint>
#include <map>
#include <tuple>

class QStyle;
class QWidget;

namespace velmora::gdi {

/// Buttons and frames as a widget's style draws them, kept as pictures of device pixels: drawing
/// them anew takes a style longer than all the rest of a calendar takes.
class StylePictures {
public:
    // Sizes in device pixels.

    /// A button with an arrow, states as in `FrameState`: a tool button to the left and the right,
    /// that of a combo box downwards.
    const QImage& Button(const QWidget& widget, Size size, std::uint32_t state, double ratio);
    /// The ground and the frame of a line edit.
    const QImage& Box(const QWidget& widget, Size size, double ratio);
    void Clear() { m_pictures.clear(); }

private:
    /// The style and its kind, as a new one may get the place of one that is gone; palette, width,
    /// height, state and ratio.
    using Key = std::tuple<const QStyle*, const QMetaObject*, qint64, std::int32_t, std::int32_t,
                           std::uint32_t, double>;
    template <class Draw>
    const QImage& Kept(const QWidget& widget, Size size, std::uint32_t state, double ratio,
                       Draw draw);

    std::map<Key, QImage> m_pictures;
};

}  // namespace velmora::gdi
