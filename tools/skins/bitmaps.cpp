#include "bitmaps.h"

#include "commands.h"

#include <algorithm>

namespace {

// Puts pictures beside and below each other. Nothing comes to lie at 0, 0: an origin of 0, 0 would leave a
// button the pressed picture of the skin before.
class Sheet {
public:
    QPoint add(const QImage& picture)
    {
        if (m_next.x() + picture.width() > kWidth) {
            m_next = QPoint(1, m_next.y() + m_height + 1);
            m_height = 0;
        }
        const QPoint place = m_next;
        m_pieces.emplace_back(place, picture);
        m_next += QPoint(picture.width() + 1, 0);
        m_height = std::max(m_height, picture.height());
        m_right = std::max(m_right, m_next.x());
        return place;
    }
    QImage image() const
    {
        QImage sheet(m_right, m_next.y() + m_height + 1, QImage::Format_RGB32);
        sheet.fill(Qt::black);
        QPainter painter(&sheet);
        for (const auto& [place, picture] : m_pieces)
            painter.drawImage(place, picture);
        return sheet;
    }

private:
    static constexpr int kWidth = 640;
    QPoint m_next{1, 1};
    int m_height = 0;
    int m_right = 1;
    std::vector<std::pair<QPoint, QImage>> m_pieces{};
};

QImage paintedFace(const Design& design, bool lit)
{
    QImage face(design.sizes[0], QImage::Format_RGB32);
    face.fill(Qt::black);
    QPainter painter(&face);
    design.paintBody(painter);
    for (const Caption& caption : design.captions)
        design.paintCaption(painter, caption);
    for (const Key& key : design.keys)
        design.paintKey(painter, key, lit);
    return face;
}

// Takes the face's own column under a display, as wide as one is needed, so that glyphs have no box round
// them.
QImage background(const QImage& face, const QRect& place)
{
    QImage picture(place.size(), QImage::Format_RGB32);
    QPainter painter(&picture);
    for (int x = 0; x < place.width(); ++x)
        painter.drawImage(x, 0, face, place.x(), place.y(), 1, place.height());
    return picture;
}

QImage digitTable(const QImage& face, const DisplayArt& display)
{
    constexpr const char* kDigits = "0123456789 .:";
    const DisplayFont& font = display.at.font;
    const int cell = font.cell.width();
    QImage table = background(face, QRect(display.at.place.topLeft(), QSize(13 * cell, font.cell.height())));
    QPainter painter(&table);
    for (int i = 0; i < 13; ++i) {
        const int width = i > 10 ? font.separator : cell;
        painter.save();
        display.paint(painter, QRect(i * cell, 0, width, font.cell.height()), kDigits[i]);
        painter.restore();
    }
    return table;
}

QImage thumbPicture(const QImage& face, const SliderArt& slider)
{
    const QRect track = slider.at.track;
    const QPoint middle(track.x() + track.width() / 2, track.y() + track.height() / 2);
    const QImage picture = face.copy(QRect(middle, slider.at.thumb.size()));
    QImage result = picture;
    QPainter painter(&result);
    slider.paint(painter, result.rect());
    return result;
}

void addButtons(Bitmaps& bitmaps, Sheet& sheet, const Design& design)
{
    const QImage lit = paintedFace(design, true);
    for (int code = 1; code <= kButtons; ++code) {
        const auto key = std::ranges::find(design.keys, code, &Key::code);
        const bool drawn = key != design.keys.end();
        const QPoint pressed = drawn ? sheet.add(lit.copy(key->place)) : QPoint(1, 1);
        bitmaps.buttons.push_back(buttonOf(design, code, drawn ? key->place : QRect(), pressed));
    }
}

} // namespace

SkinButton buttonOf(const Design& design, int code, const QRect& place, QPoint pressed)
{
    const QRect outside(-200, -200, 16, 16);
    SkinButton button{
        code, place.isEmpty() ? outside : place, pressed, {}, command(code).key, command(code).toolTip, {}};
    if (code == kPreviousSkinButton)
        button.skin = design.before;
    if (code == kNextSkinButton)
        button.skin = design.after;
    return button;
}

Bitmaps drawBitmaps(const Design& design)
{
    Bitmaps bitmaps;
    bitmaps.face = paintedFace(design, false);
    Sheet sheet;
    for (const SliderArt& slider : design.sliders) {
        bitmaps.sliders.push_back(slider.at);
        bitmaps.sliders.back().thumb.moveTo(sheet.add(thumbPicture(bitmaps.face, slider)));
    }
    for (const DisplayArt& display : design.displays) {
        bitmaps.displays.push_back(display.at);
        bitmaps.displays.back().font.origin = sheet.add(digitTable(bitmaps.face, display));
    }
    addButtons(bitmaps, sheet, design);
    bitmaps.parts = sheet.image();
    return bitmaps;
}
