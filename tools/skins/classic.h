// Writes classic.skin, which builds its face at load time from the ten pictures of the classic layout of 275
// by 116 pixels; and a set of such pictures of our own, so that it shows something before a user has one.
#pragma once

#include <QByteArray>
#include <QString>

QByteArray classicControlFile();

// Writes main, titlebar, cbuttons, numbers, text, posbar, volume, shufrep, playpaus and monoster as BMP into
// a directory that is there. Returns false when one cannot be written.
bool saveClassicSet(const QString& directory);
