// A skin is applied to this: the player's face, or whoever wants to know what a control file does. Calls come
// in the file's order, each as soon as its line is read, so that what a broken file gave before its error
// stays.
#pragma once

#include "player/skin/skinelements.h"
#include "player/skin/skinmarks.h"

class SkinTarget {
public:
    virtual ~SkinTarget() = default;

    // Are called once each; everything else comes between them. endLoad comes also after an error.
    virtual void beginLoad() = 0; // the playback timer rests
    virtual void endLoad() = 0;

    virtual void setWindowSizes(const WindowSizes& pixels) = 0;

    // Is false when there is no such file or it is no picture; the old bitmap stays then.
    virtual bool setBackground(const QString& path) = 0;
    virtual bool setResource(const QString& path) = 0;

    // What the skin before placed is hidden (of the buttons the first one only), its outline goes.
    virtual void reset() = 0;
    virtual void setHoverStyle(int style) = 0; // 0 nothing, 1 a frame, 2 the pressed picture
    virtual void
    placeWindow(int position) = 0; // 0 stays, 1 left, 2 right, 3 bottom right, 4 bottom left, 5 middle

    virtual void set(const SkinButton& button) = 0;
    virtual void set(const SkinLabel& label) = 0;
    virtual void set(const SkinLight& light) = 0;
    virtual void set(const SkinSlider& slider) = 0;
    virtual void set(const SkinDisplay& display) = 0;
    virtual void set(const SkinCover& cover) = 0;
    virtual void set(const SkinPlaylist& playlist) = 0;
    virtual void add(const SkinMark& mark) = 0; // kMarks at most

    // Work pictures are numbered from 0. It is false as above.
    virtual bool loadWork(int number, const QString& path) = 0;
    virtual void sizeWork(int number, QSize size) = 0;
    // Is false when the rectangle reaches beyond what there is of work picture 2.
    virtual bool copyFromWork2(int number, const QRect& from, QPoint to) = 0;
    virtual void useWork() = 0; // 0 becomes the background, 1 the resource bitmap
    virtual void releaseWork() = 0;

    virtual void setOutline(const SkinOutline& outline) = 0;
    virtual void repaint() = 0; // the displays and the state lights
};
