// Takes any file as a skin: the target gets nothing but what its interface promises.
#include "base/codepage.h"
#include "player/skin/skindiagnostics.h"
#include "player/skin/skinhost.h"
#include "player/skin/skininterpreter.h"
#include "player/skin/skinreader.h"
#include "player/skin/skintarget.h"
#include "tests/fuzz/demand.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace {

class DemandingTarget : public SkinTarget {
public:
    ~DemandingTarget() override
    {
        demand(!m_loading, "a load that began has ended");
        demand(m_begun <= 1, "a file is one load");
    }

    void beginLoad() override
    {
        demand(!m_loading, "no load within a load");
        m_loading = true;
        ++m_begun;
    }
    void endLoad() override
    {
        within();
        demand(m_released, "work pictures are released");
        m_loading = false;
    }
    void setWindowSizes(const WindowSizes& pixels) override
    {
        within();
        for (const QSize size : pixels)
            demand(inWord(size.width()) && inWord(size.height()), "window sizes have 16 bits");
    }
    bool setBackground(const QString& path) override { return picture(path); }
    bool setResource(const QString& path) override { return picture(path); }
    void reset() override { within(); }
    void setHoverStyle(int style) override { demand(inWord(style), "hover styles have 16 bits"); }
    void placeWindow(int position) override { demand(inWord(position), "positions have 16 bits"); }

    void set(const SkinButton& button) override
    {
        placed(button.number, kButtons, button.place);
        demand(inWord(button.pressed.x()) && inWord(button.pressed.y()), "pressed origins have 16 bits");
        demand(button.key.size() <= 1, "a key is one character");
        demand(button.skin.isEmpty() || button.number >= 49, "only two buttons load skins");
        tip(button.toolTip);
    }
    void set(const SkinLabel& label) override
    {
        placed(label.number, kLabels, label.place);
        colour(label.colour);
        tip(label.toolTip);
    }
    void set(const SkinLight& light) override
    {
        placed(light.number, kLights, light.place);
        colour(light.colour);
        const int shape = static_cast<int>(light.shape);
        demand(shape >= 0 && shape <= 5, "the shape exists");
    }
    void set(const SkinSlider& slider) override
    {
        const int longer = std::max(slider.track.width(), slider.track.height());
        placed(slider.number, kSliders, {slider.track.topLeft(), QSize(longer, longer)});
        tip(slider.toolTip);
    }
    void set(const SkinDisplay& display) override
    {
        placed(display.number, kDisplays, display.place);
        tip(display.toolTip);
    }
    void set(const SkinCover& cover) override
    {
        placed(1, 1, cover.place);
        tip(cover.toolTip);
    }
    void set(const SkinPlaylist& list) override
    {
        placed(1, 1, list.place);
        colour(list.textColour);
        colour(list.backColour);
        tip(list.toolTip);
    }

    void add(const SkinMark& mark) override { placed(++m_marks, kMarks, mark.place); }

    bool loadWork(int number, const QString& path) override
    {
        demand(number >= 0 && number < kWorkPictures, "the work picture exists");
        return picture(path);
    }
    void sizeWork(int number, QSize size) override
    {
        demand(number >= 0 && number < 2, "the composition exists");
        demand(size.width() >= 1 && size.height() >= 1, "a work picture has a size");
    }
    bool copyFromWork2(int number, const QRect& from, QPoint) override
    {
        placed(number + 1, 2, from);
        return from.x() >= 0;
    }
    void useWork() override { within(); }
    void releaseWork() override { m_released = true; }

    void setOutline(const SkinOutline& outline) override
    {
        within();
        demand(!outline.empty(), "an outline has a polygon");
        for (const std::vector<QPoint>& polygon : outline)
            demand(polygon.size() >= 3, "a polygon has an inside");
    }
    void repaint() override { within(); }

private:
    static bool inWord(int value) { return value >= -32768 && value <= 32767; }
    void within() const { demand(m_loading, "everything comes within the load"); }
    // One picture is there and the next one not.
    bool picture(const QString& path)
    {
        within();
        demand(path.startsWith(u"D:\\"_qs), "pictures lie in the skin's directory");
        return (++m_pictures & 1) != 0;
    }
    void placed(int number, int last, const QRect& place) const
    {
        within();
        demand(number >= 1 && number <= last, "the number exists");
        demand(inWord(place.x()) && inWord(place.y()), "places have 16 bits");
        demand(place.width() >= 1 && place.height() >= 1, "a place has a size");
    }
    static void colour(SkinColour colour) { demand(colour <= 0xFFFFFF, "colours have 24 bits"); }
    static void tip(const QString& text) { demand(!text.startsWith(u'~'), "tool tips have passed TipText"); }

    bool m_loading = false;
    bool m_released = false;
    int m_begun = 0;
    int m_pictures = 0;
    int m_marks = 0;
};

struct QuietHost : SkinHost {
    std::optional<QString> importDirectory(const SkinImport& proposed) override
    {
        return proposed.file.isEmpty() ? std::nullopt : std::optional(u"D:\\import\\"_qs);
    }
    // It may be any text; whether it is used shows in the demands on outlines and colours.
    std::optional<QByteArray> hints(const QString& path) override
    {
        return path.toUtf8().sliced(3).replace('|', '\n');
    }
    void chosen() override { demand(!std::exchange(wasChosen, true), "a skin is chosen once"); }
    void message(const QString& text) override { demand(text.size() < 10000, "a message fits in its box"); }
    void yield() override {}
    bool closed() const override { return false; }

    bool wasChosen = false;
};

struct CheckedNotes : SkinDiagnostics {
    void note(int line, const QString& text) override
    {
        demand(line >= 0 && line <= lines && !text.isEmpty(), "a note tells a line of the file");
    }
    int lines = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const CodePage codePage = CodePage::windows1252();
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    DemandingTarget target;
    QuietHost host;
    SkinTexts texts;
    CheckedNotes notes;
    notes.lines = static_cast<int>(bytes.count('\n') + bytes.count('\r')) + 1;
    SkinReader reader(bytes, codePage);
    SkinInterpreter interpreter({reader, target, host, texts}, &notes);
    if (interpreter.isSkin())
        interpreter.load(u"D:\\"_qs);
    demand(texts.info.size() <= 32767, "the description stays in its limit");
    return 0;
}
