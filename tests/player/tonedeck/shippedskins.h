// Reads the skins beside the program as the player reads them.
#pragma once

#include "base/codepage.h"
#include "player/skin/skindiagnostics.h"
#include "player/skin/skinhost.h"
#include "player/skin/skininterpreter.h"
#include "player/skin/skinreader.h"
#include "player/skin/skintarget.h"
#include "player/skin/skintexts.h"

#include <gtest/gtest.h>

#include <QFile>

#include <map>
#include <optional>

// Gathers everything that a skin places, by its number.
struct GatheringTarget : SkinTarget {
    void beginLoad() override {}
    void endLoad() override {}
    void setWindowSizes(const WindowSizes& pixels) override { sizes = pixels; }
    bool setBackground(const QString& path) override
    {
        background = path;
        return QFile::exists(path);
    }
    bool setResource(const QString& path) override
    {
        resource = path;
        return QFile::exists(path);
    }
    void reset() override {}
    void setHoverStyle(int style) override { hoverStyle = style; }
    void placeWindow(int) override {}
    void set(const SkinButton& button) override { buttons[button.number] = button; }
    void set(const SkinLabel& label) override { labels[label.number] = label; }
    void set(const SkinLight& light) override { lights[light.number] = light; }
    void set(const SkinSlider& slider) override { sliders[slider.number] = slider; }
    void set(const SkinDisplay& display) override { displays[display.number] = display; }
    void set(const SkinCover& skinCover) override { cover = skinCover; }
    void set(const SkinPlaylist& skinPlaylist) override { playlist = skinPlaylist; }
    void add(const SkinMark& mark) override { marks.push_back(mark); }
    bool loadWork(int, const QString& path) override { return QFile::exists(path); }
    void sizeWork(int number, QSize size) override { workSizes[number] = size; }
    bool copyFromWork2(int, const QRect&, QPoint) override { return true; }
    void useWork() override {}
    void releaseWork() override {}
    void setOutline(const SkinOutline& polygons) override { outline = polygons; }
    void repaint() override {}

    WindowSizes sizes{};
    QString background;
    QString resource;
    int hoverStyle = 0;
    std::map<int, SkinButton> buttons;
    std::map<int, SkinLabel> labels;
    std::map<int, SkinLight> lights;
    std::map<int, SkinSlider> sliders;
    std::map<int, SkinDisplay> displays;
    std::vector<SkinMark> marks;
    std::optional<SkinCover> cover;
    std::optional<SkinPlaylist> playlist;
    std::map<int, QSize> workSizes;
    SkinOutline outline;
};

// The directory of its pictures is asked for and given; there is nobody to talk to.
struct ShippedSkin : SkinHost, SkinDiagnostics {
    static QString directory() { return QStringLiteral(SONGBIN_SHIPPED "/"); }

    // Returns false when there is no such skin.
    bool read(const QString& name, SkinTarget& target, const QString& pictures = {})
    {
        QFile file(directory() + name + u".skin"_qs);
        if (!file.open(QIODevice::ReadOnly))
            return false;
        m_pictures = pictures;
        const CodePage codePage = CodePage::windows1252();
        SkinReader reader(file.readAll(), codePage);
        SkinInterpreter interpreter({reader, target, *this, texts}, this);
        if (!interpreter.isSkin())
            return false;
        interpreter.load(directory());
        return true;
    }

    std::optional<QString> importDirectory(const SkinImport& proposed) override
    {
        import = proposed;
        return m_pictures;
    }
    void chosen() override {}
    void message(const QString& text) override { messages += text; }
    void yield() override {}
    bool closed() const override { return false; }
    void note(int line, const QString& text) override { notes += u"%1: %2"_qs.arg(line).arg(text); }

    SkinTexts texts;
    SkinImport import;
    QStringList messages;
    QStringList notes;

private:
    QString m_pictures;
};

inline bool isOutside(const SkinButton& button)
{
    return button.place.right() < 0;
}
