#include "classic.h"

#include "controlfile.h"

namespace {

constexpr QSize kFace(275, 116);
constexpr QSize kWithList(275, 246);

// Is a rectangle of a picture, and says where it goes.
struct Piece {
    enum Target : int { Face, Parts };
    QRect from{};
    Target target = Face;
    QPoint to{};
};

struct Picture {
    QString name{};
    std::vector<Piece> pieces{};
};

// Is a button, and says where its pressed picture is found.
struct Pressed {
    int code = 0;
    QRect place{};
    QPoint parts{};
    QString picture{};
    QPoint from{};
};

// These are places in the parts; the digits' colon follows them as the thirteenth cell.
constexpr QPoint kDigits(1, 1);
constexpr QPoint kText(1, 20);
constexpr QPoint kPositionThumb(160, 1);
constexpr QPoint kVolumeThumb(200, 1);

// Is a picture that is shown while the player is in some state, with its place and where the parts have it.
struct Mark {
    QByteArray state{};
    QRect place{};
    QPoint parts{};
    QString picture{};
    QPoint from{};
};

const std::vector<Mark>& marks()
{
    static const std::vector<Mark> all = {
        {"playing", {26, 28, 9, 9}, {220, 1}, u"playpaus"_qs, {0, 0}},
        {"paused", {26, 28, 9, 9}, {230, 1}, u"playpaus"_qs, {9, 0}},
        {"stopped", {26, 28, 9, 9}, {240, 1}, u"playpaus"_qs, {18, 0}},
        {"stereo", {239, 41, 29, 12}, {220, 12}, u"monoster"_qs, {0, 0}},
        {"mono", {212, 41, 27, 12}, {250, 12}, u"monoster"_qs, {29, 0}},
        {"shuffle", {164, 89, 46, 15}, {160, 25}, u"shufrep"_qs, {28, 30}},
        {"repeat", {210, 89, 28, 15}, {210, 25}, u"shufrep"_qs, {0, 30}},
    };
    return all;
}

const std::vector<Pressed>& pressedButtons()
{
    static const std::vector<Pressed> buttons = {
        {14, {16, 88, 23, 18}, {1, 45}, u"cbuttons"_qs, {0, 18}},
        {12, {39, 88, 23, 18}, {24, 45}, u"cbuttons"_qs, {23, 18}},
        {11, {62, 88, 23, 18}, {47, 45}, u"cbuttons"_qs, {46, 18}},
        {10, {85, 88, 23, 18}, {70, 45}, u"cbuttons"_qs, {69, 18}},
        {15, {108, 88, 22, 18}, {93, 45}, u"cbuttons"_qs, {92, 18}},
        {13, {136, 89, 22, 16}, {116, 45}, u"cbuttons"_qs, {114, 16}},
        {28, {164, 89, 46, 15}, {140, 45}, u"shufrep"_qs, {28, 15}},
        {27, {210, 89, 28, 15}, {188, 45}, u"shufrep"_qs, {0, 15}},
        {29, {219, 58, 23, 12}, {218, 45}, u"shufrep"_qs, {46, 61}},
        {35, {242, 58, 23, 12}, {242, 45}, u"shufrep"_qs, {69, 61}},
        {5, {6, 3, 9, 9}, {1, 66}, u"titlebar"_qs, {0, 9}},
        {2, {244, 3, 9, 9}, {11, 66}, u"titlebar"_qs, {9, 9}},
        {3, {254, 3, 9, 9}, {21, 66}, u"titlebar"_qs, {9, 18}},
        {1, {264, 3, 9, 9}, {31, 66}, u"titlebar"_qs, {18, 9}},
        {34, {36, 26, 63, 13}, {1, 80}, {}, {}},
        {16, {24, 43, 76, 16}, {70, 80}, {}, {}},
        {6, {250, 91, 18, 15}, {150, 80}, {}, {}},
    };
    return buttons;
}

// What a missing picture would have covered shows the main picture, so the pieces of that one come first.
std::vector<Picture> pictures()
{
    std::vector<Picture> all = {
        {u"main"_qs,
         {{QRect(QPoint(), kFace), Piece::Face, {}},
          {{72, 26, 3, 13}, Piece::Parts, kDigits + QPoint(12 * 9, 0)}}},
        {u"titlebar"_qs, {{{27, 0, 275, 14}, Piece::Face, {0, 0}}}},
        {u"cbuttons"_qs,
         {{{0, 0, 114, 18}, Piece::Face, {16, 88}}, {{114, 0, 22, 16}, Piece::Face, {136, 89}}}},
        {u"shufrep"_qs,
         {{{28, 0, 47, 15}, Piece::Face, {164, 89}},
          {{0, 0, 28, 15}, Piece::Face, {210, 89}},
          {{0, 61, 23, 12}, Piece::Face, {219, 58}},
          {{23, 61, 23, 12}, Piece::Face, {242, 58}}}},
        {u"monoster"_qs,
         {{{29, 12, 27, 12}, Piece::Face, {212, 41}}, {{0, 12, 29, 12}, Piece::Face, {239, 41}}}},
        {u"playpaus"_qs, {}},
        {u"numbers"_qs, {{{0, 0, 99, 13}, Piece::Parts, kDigits}}},
        {u"text"_qs, {{{0, 0, 155, 18}, Piece::Parts, kText}}},
        // Some pictures end before their thumbs: the groove is seen in place of the position's, and that one
        // stands in for the volume's.
        {u"posbar"_qs,
         {{{0, 0, 248, 10}, Piece::Face, {16, 72}},
          {{0, 0, 29, 10}, Piece::Parts, kPositionThumb},
          {{0, 0, 14, 10}, Piece::Parts, kVolumeThumb},
          {{248, 0, 29, 10}, Piece::Parts, kPositionThumb},
          {{255, 0, 14, 10}, Piece::Parts, kVolumeThumb}}},
        {u"volume"_qs,
         {{{0, 210, 68, 13}, Piece::Face, {107, 57}}, {{15, 422, 14, 11}, Piece::Parts, kVolumeThumb}}},
    };
    for (Picture& picture : all)
        for (const Pressed& button : pressedButtons()) {
            if (picture.name == u"main"_qs)
                picture.pieces.push_back({button.place, Piece::Parts, button.parts});
            if (picture.name == button.picture)
                picture.pieces.push_back(
                    {QRect(button.from, button.place.size()), Piece::Parts, button.parts});
        }
    for (Picture& picture : all)
        for (const Mark& mark : marks())
            if (picture.name == mark.picture)
                picture.pieces.push_back({QRect(mark.from, mark.place.size()), Piece::Parts, mark.parts});
    return all;
}

// Returns the names under which a set may have a picture. Sets that bring digits with a minus sign mean
// those.
std::vector<QByteArray> namesOf(const QByteArray& name)
{
    if (name == "numbers")
        return {"nums_ex", name};
    return {name};
}

// The lines apply when there is a picture of the name, as BMP or as PNG; the others when there is none.
QByteArray whenThere(const QByteArray& name, const QByteArray& label, const QByteArray& lines,
                     const QByteArray& otherwise = {})
{
    QByteArray text;
    for (const QByteArray& file : namesOf(name))
        for (const QByteArray& kind : {QByteArray(".bmp"), QByteArray(".png")})
            text += "R2," + file + kind + "\r\n?1,have" + label + "\r\n";
    text += "?0,no" + label + "\r\n:have" + label + "\r\n" + lines;
    if (!otherwise.isEmpty())
        text += "?1,end" + label + "\r\n";
    text += ":no" + label + "\r\n";
    if (!otherwise.isEmpty())
        text += otherwise + ":end" + label + "\r\n";
    return text;
}

QByteArray linesOf(const Piece& piece)
{
    const QRect& from = piece.from;
    QByteArray line = 'Z' + QByteArray::number(static_cast<int>(piece.target));
    for (const int number : {from.x(), from.y(), from.width(), from.height(), piece.to.x(), piece.to.y()})
        line += ',' + QByteArray::number(number);
    return line + "\r\n";
}

QByteArray pictureLines()
{
    QByteArray text = commentLine(u"the face and the parts are put together from the user's pictures"_qs);
    text += "W0,275,246\r\nW1,320,100\r\n";
    for (const Picture& picture : pictures()) {
        QByteArray lines;
        for (const Piece& piece : picture.pieces)
            lines += linesOf(piece);
        const QByteArray name = picture.name.toUtf8();
        text += whenThere(name, name, lines);
    }
    return text + "U\r\n";
}

QByteArray buttonLines(const Design& design)
{
    QByteArray text;
    for (int code = 1; code <= kButtons; ++code) {
        QRect place;
        QPoint parts(1, 1);
        for (const Pressed& button : pressedButtons())
            if (button.code == code) {
                place = button.place;
                parts = button.parts;
            }
        text += lineOf(buttonOf(design, code, place, parts));
    }
    return text;
}

SkinDisplay displayOf(int number, QPoint at, const DisplayFont& font, const QString& toolTip)
{
    return {number, QRect(at, font.cell), font, toolTip};
}

// Marks out of their picture, and lights of one colour where the set has none.
QByteArray markLines(const QString& picture, const QByteArray& label, const std::vector<SkinLight>& lights)
{
    QByteArray lines;
    for (const Mark& mark : marks())
        if (mark.picture == picture) {
            lines += ";@mark," + mark.state;
            for (const int number : {mark.place.x(), mark.place.y(), mark.place.width(), mark.place.height(),
                                     mark.parts.x(), mark.parts.y()})
                lines += ',' + QByteArray::number(number);
            lines += "\r\n";
        }
    return whenThere(picture.toUtf8(), label, lines, ::linesOf(lights));
}

QByteArray stateLines()
{
    Design transport;
    addLight(transport, 2, {22, 28, 3, 3}, QColor(0xff, 0x50, 0x40), LightShape::Rectangle);
    addLight(transport, 4, {22, 31, 3, 3}, QColor(0x50, 0xe0, 0x60), LightShape::Rectangle);
    addLight(transport, 3, {22, 34, 3, 3}, QColor(0xff, 0xc0, 0x40), LightShape::Rectangle);
    Design modes;
    addLight(modes, 9, {166, 91, 3, 3}, QColor(0x50, 0xff, 0x60), LightShape::Rectangle);
    addLight(modes, 7, {212, 91, 3, 3}, QColor(0x50, 0xff, 0x60), LightShape::Rectangle);
    return markLines(u"playpaus"_qs, "transport", transport.lights) +
           markLines(u"monoster"_qs, "channels", {}) + markLines(u"shufrep"_qs, "modes", modes.lights);
}

QByteArray hintLines()
{
    return commentLine(u"what a set says of its outline and of its list's colours"_qs) +
           ";@outline,region.txt\r\n;@list,pledit.txt\r\n";
}

// What draws from a picture is there only when the picture is: they are asked for once more.
QByteArray drawnLines()
{
    const DisplayFont digits{kDigits, {9, 13}, 3, 0, 3, 0};
    const DisplayFont text{kText, {5, 6}, 0, 3, 0, 0};
    DisplayFont rate = text;
    DisplayFont sampling = text;
    rate.cells = 3;
    sampling.cells = 2;
    const SkinSlider position{1, {16, 72, 219, 0}, QRect(kPositionThumb, QSize(29, 10)), u"Position"_qs};
    const SkinSlider volume{2, {107, 58, 54, 0}, QRect(kVolumeThumb, QSize(14, 11)), u"Volume"_qs};
    return whenThere("numbers", "time", lineOf(displayOf(1, {48, 26}, digits, u"Time"_qs))) +
           whenThere("text", "name",
                     lineOf(displayOf(4, {111, 43}, rate, u"Bit rate"_qs)) +
                         lineOf(displayOf(5, {156, 43}, sampling, u"Sampling rate"_qs))) +
           whenThere("posbar", "position", lineOf(position)) + whenThere("volume", "loud", lineOf(volume));
}

} // namespace

QByteArray classicControlFile()
{
    Design design;
    design.title = u"Classic pictures"_qs;
    design.about = {u"Wears the pictures of the classic layout of 275 by 116 pixels."_qs,
                    u"Choose the main picture of a set when it asks."_qs,
                    u"Fold it to its title, or to a playlist below it."_qs};
    design.sizes = {kFace, QSize(275, 14), kWithList};
    design.before = u"large.skin"_qs;
    design.after = u"default.skin"_qs;
    // Nearly every set has a dark panel there.
    addLabel(design, 2, {111, 23, 155, 14}, QColor(0xf4, 0xf4, 0xf4), 8, u"Title"_qs);
    const SkinPlaylist playlist{{0, 116, 275, 130},
                                skinColour(QColor(0xd8, 0xdc, 0xe4)),
                                skinColour(QColor(0x10, 0x10, 0x14)),
                                u"Sans Serif"_qs,
                                8,
                                {}};
    return headerLines(design) +
           "*,classic\r\nMain picture or packed set|main.bmp;main.png;*.wsz;*.zip,main.bmp\r\n" +
           settingLines(design) + pictureLines() + buttonLines(design) + drawnLines() + stateLines() +
           hintLines() + ::linesOf(design.labels) + lineOf(playlist) + "E\r\n";
}
