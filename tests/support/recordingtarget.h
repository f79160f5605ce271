// Is a target that keeps what it is told as text, one line a call.
#pragma once

#include "player/skin/skintarget.h"

#include <QStringList>

#include <functional>
#include <set>

class RecordingTarget : public SkinTarget {
public:
    void beginLoad() override { say(u"begin"_qs); }
    void endLoad() override { say(u"end"_qs); }
    void setWindowSizes(const WindowSizes& pixels) override
    {
        say(u"sizes %1 %2 %3"_qs.arg(text(pixels[0]), text(pixels[1]), text(pixels[2])));
    }
    bool setBackground(const QString& path) override { return picture(u"background"_qs, path); }
    bool setResource(const QString& path) override { return picture(u"resource"_qs, path); }
    void reset() override { say(u"reset"_qs); }
    void setHoverStyle(int style) override { say(u"hover %1"_qs.arg(style)); }
    void placeWindow(int position) override { say(u"window %1"_qs.arg(position)); }

    void set(const SkinButton& b) override
    {
        say(u"B%1 %2 pressed %3 tag [%4] key [%5] tip [%6] skin [%7]"_qs.arg(b.number).arg(
            text(b.place), text(b.pressed), b.tag, b.key, b.toolTip, b.skin));
    }
    void set(const SkinLabel& l) override
    {
        say(u"L%1 %2 colour %3 font [%4] %5 tip [%6]"_qs.arg(l.number)
                .arg(text(l.place), text(l.colour), l.font)
                .arg(l.fontSize)
                .arg(l.toolTip));
    }
    void set(const SkinLight& l) override
    {
        say(u"I%1 %2 colour %3 shape %4"_qs.arg(l.number)
                .arg(text(l.place), text(l.colour))
                .arg(static_cast<int>(l.shape)));
    }
    void set(const SkinSlider& s) override
    {
        say(u"S%1 %2 thumb %3 tip [%4]"_qs.arg(s.number).arg(text(s.track), text(s.thumb), s.toolTip));
    }
    void set(const SkinDisplay& d) override
    {
        const DisplayFont& f = d.font;
        say(u"D%1 %2 glyphs %3 cell %4 sep %5 style %6 gap %7 cells %8 tip [%9]"_qs.arg(d.number)
                .arg(text(d.place), text(f.origin), text(f.cell))
                .arg(f.separator)
                .arg(f.style)
                .arg(f.gap)
                .arg(f.cells)
                .arg(d.toolTip));
    }
    void set(const SkinCover& c) override { say(u"C %1 tip [%2]"_qs.arg(text(c.place), c.toolTip)); }
    void set(const SkinPlaylist& p) override
    {
        say(u"X %1 colours %2 %3 font [%4] %5 tip [%6]"_qs
                .arg(text(p.place), text(p.textColour), text(p.backColour), p.font)
                .arg(p.fontSize)
                .arg(p.toolTip));
    }

    void add(const SkinMark& m) override
    {
        say(u"mark %1 %2 picture %3"_qs.arg(static_cast<int>(m.state)).arg(text(m.place), text(m.picture)));
    }

    bool loadWork(int number, const QString& path) override
    {
        return picture(u"load %1"_qs.arg(number), path);
    }
    void sizeWork(int number, QSize size) override { say(u"size %1 %2"_qs.arg(number).arg(text(size))); }
    bool copyFromWork2(int number, const QRect& from, QPoint to) override
    {
        say(u"copy %1 %2 to %3"_qs.arg(number).arg(text(from), text(to)));
        return work2.contains(from);
    }
    void useWork() override { say(u"use"_qs); }
    void releaseWork() override { say(u"release"_qs); }

    void setOutline(const SkinOutline& outline) override
    {
        QStringList polygons;
        for (const std::vector<QPoint>& polygon : outline) {
            QStringList points;
            for (const QPoint point : polygon)
                points += text(point);
            polygons += points.join(u' ');
        }
        say(u"outline "_qs + polygons.join(u" | "_qs));
    }
    void repaint() override { say(u"repaint"_qs); }

    QStringList calls;
    QRect work2{-32768, -32768, 131072, 131072}; // what there is of work picture 2
    std::set<QString> missing;                   // paths of pictures that there are not
    std::function<void(const QString&)> onCall;  // may throw

private:
    void say(const QString& call)
    {
        calls += call;
        if (onCall)
            onCall(call);
    }
    bool picture(const QString& what, const QString& path)
    {
        const bool there = !missing.contains(path);
        say(what + u' ' + path + (there ? QString() : u" (missing)"_qs));
        return there;
    }

    static QString text(QPoint point) { return u"%1,%2"_qs.arg(point.x()).arg(point.y()); }
    static QString text(QSize size) { return u"%1x%2"_qs.arg(size.width()).arg(size.height()); }
    static QString text(const QRect& rect) { return text(rect.topLeft()) + u' ' + text(rect.size()); }
    static QString text(SkinColour colour) { return QString::number(colour, 16); }
};
