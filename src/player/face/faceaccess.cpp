#include "player/face/faceaccess.h"

#include "player/face/facecanvas.h"
#include "player/face/facetext.h"
#include "player/face/hotarea.h"
#include "player/face/playlistbox.h"
#include "player/face/sliderthumb.h"
#include "player/face/statusline.h"

#include <QAccessibleWidget>

namespace {

// Work pictures, marks and lights are no part of it, nor is what lies beyond the face.
class AccessibleFace : public QAccessibleWidget {
public:
    explicit AccessibleFace(QWidget* canvas) : QAccessibleWidget(canvas, QAccessible::Grouping) {}

    int childCount() const override { return static_cast<int>(parts().size()); }
    QAccessibleInterface* child(int index) const override
    {
        const QWidgetList all = parts();
        return index >= 0 && index < all.size() ? QAccessible::queryAccessibleInterface(all[index]) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override
    {
        return static_cast<int>(parts().indexOf(qobject_cast<QWidget*>(child->object())));
    }

private:
    QWidgetList parts() const
    {
        QWidgetList found;
        const QWidget& canvas = *widget();
        for (QObject* object : canvas.children()) {
            auto* part = qobject_cast<QWidget*>(object);
            if (part && !part->isHidden() && isPart(*part) && part->geometry().intersects(canvas.rect()))
                found += part;
        }
        return found;
    }
    static bool isPart(const QWidget& part)
    {
        if (const auto* label = qobject_cast<const FaceLabel*>(&part))
            return !label->text().isEmpty();
        return qobject_cast<const HotArea*>(&part) || qobject_cast<const SliderThumb*>(&part) ||
               qobject_cast<const PlaylistBox*>(&part) || qobject_cast<const DisplayMark*>(&part) ||
               qobject_cast<const CoverBox*>(&part) || qobject_cast<const StatusLine*>(&part);
    }
};

class AccessibleThumb : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit AccessibleThumb(SliderThumb* thumb) : QAccessibleWidget(thumb, QAccessible::Slider) {}

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }
    QVariant currentValue() const override { return static_cast<double>(thumb().value()); }
    void setCurrentValue(const QVariant& value) override
    {
        Q_EMIT thumb().stepped(value.toFloat() - thumb().value());
    }
    QVariant maximumValue() const override { return 1.0; }
    QVariant minimumValue() const override { return 0.0; }
    QVariant minimumStepSize() const override { return 0.01; }

private:
    SliderThumb& thumb() const { return *static_cast<SliderThumb*>(widget()); }
};

QAccessibleInterface* accessibleOf(const QString& className, QObject* object)
{
    if (className == QLatin1String(FaceCanvas::staticMetaObject.className()))
        return new AccessibleFace(static_cast<QWidget*>(object));
    if (className == QLatin1String(SliderThumb::staticMetaObject.className()))
        return new AccessibleThumb(static_cast<SliderThumb*>(object));
    if (className == QLatin1String(DisplayMark::staticMetaObject.className()))
        return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::StaticText);
    if (className == QLatin1String(CoverBox::staticMetaObject.className()))
        return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Graphic);
    if (className == QLatin1String(StatusLine::staticMetaObject.className()))
        return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Notification);
    return nullptr;
}

} // namespace

void offerFaceToReaders()
{
    QAccessible::installFactory(accessibleOf); // once, however often it is called
}
