// Reads the tips of the day, one a line of a text file, empty lines included, in the file's order.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

class CodePage;
class Files;

// Gives nothing when the name is empty, or no such file exists.
std::optional<QStringList> readTips(Files& files, const QString& file, const CodePage& codePage);

// Returns the 1-based index of a tip for a random number in [0, 1); any tip can come again.
int tipIndex(double random, int tips);
