// Reads a shipped skin that is drawn as a face and its parts, with both pictures; the parameter is its name.
#pragma once

#include "tests/player/tonedeck/shippedskins.h"

#include <QImage>

inline QImage picture(const QString& path)
{
    return QImage(path).convertToFormat(QImage::Format_RGB32);
}

struct DrawnSkin : testing::TestWithParam<const char*> {
    void SetUp() override
    {
        ASSERT_TRUE(skin.read(QString::fromLatin1(GetParam()), target));
        face = picture(target.background);
        parts = picture(target.resource);
        ASSERT_FALSE(face.isNull());
        ASSERT_FALSE(parts.isNull());
    }

    ShippedSkin skin;
    GatheringTarget target;
    QImage face;
    QImage parts;
};
