// Makes pictures for the toolkit's readers, of a structure that is whole, with nothing in them but what makes
// their colours: readers expand texts and profiles to sizes that nobody checks.
#pragma once

#include <QByteArray>
#include <QSize>

#include <optional>

struct BarePicture {
    QByteArray content{};
    QSize size{};
};

// Gives nothing when a part is missing or cut, the size is beyond the limits or more than the data can yield.
std::optional<BarePicture> barePng(QByteArrayView file);
std::optional<BarePicture> bareJpeg(QByteArrayView file);
