// Applies a skin to the face: its controls, its picture, its size, place and outline.
#pragma once

#include "player/face/skinstate.h"
#include "player/skin/skintarget.h"

#include <functional>
#include <optional>

class FaceCanvas;
class FileNumbers;
struct FaceControls;

class SkinApplier : public SkinTarget {
public:
    // Tells what follows from it.
    struct Hooks {
        std::function<void(bool)> loads;    // it begins, or has ended
        std::function<void()> resize;       // to the size of the state's size mode
        std::function<void(int)> place;     // by a position code
        std::function<void()> applyOutline; // the state's; none: the whole rectangle
        std::function<void()> Form_Paint;   // the background is new, too
        std::function<void()> ShowLights;
    };

    SkinApplier(FaceControls& controls, SkinState& state, FileNumbers& numbers, Hooks hooks)
        : m_controls(controls), m_state(state), m_numbers(numbers), m_hooks(std::move(hooks))
    {
    }

    void beginLoad() override;
    void endLoad() override;
    void setWindowSizes(const WindowSizes& pixels) override;
    bool setBackground(const QString& path) override;
    bool setResource(const QString& path) override;
    void reset() override;
    void setHoverStyle(int style) override;
    void placeWindow(int position) override;
    void set(const SkinButton& button) override;
    void set(const SkinLabel& label) override;
    void set(const SkinLight& light) override;
    void set(const SkinSlider& slider) override;
    void set(const SkinDisplay& display) override;
    void set(const SkinCover& cover) override;
    void set(const SkinPlaylist& playlist) override;
    void add(const SkinMark& mark) override;
    bool loadWork(int number, const QString& path) override;
    void sizeWork(int number, QSize size) override;
    bool copyFromWork2(int number, const QRect& from, QPoint to) override;
    void useWork() override;
    void releaseWork() override;
    void setOutline(const SkinOutline& outline) override;
    void repaint() override;

private:
    void hideElements();
    void spend(qint64 pixels); // throws RunTimeError CannotMakeImage when a load asks for too much
    std::optional<QImage> bitmap(const QString& path) const;

    FaceControls& m_controls;
    SkinState& m_state;
    FileNumbers& m_numbers;
    Hooks m_hooks;
    qint64 m_pixels = 0;
};
