// Tells what a SELECT statement is made of, as far as a cursor whose rows can be changed has to know it.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

// Describes "SELECT <columns> FROM MP3 [WHERE ...] [ORDER BY ...] [LIMIT ...]", a statement each of whose
// rows is one row of the table. Places are offsets in the statement's bytes.
struct SelectShape {
    qsizetype columnsAt = 0; // behind SELECT
    bool isWhole = false;    // nothing but "SELECT * FROM MP3"
    // Of a statement that ends with "ORDER BY <one column>" in rising order these tell where that begins, and
    // the column.
    qsizetype orderAt = -1;
    QByteArray orderColumn;
};

// Gives nothing for any other statement, such as one that joins, groups or unites. Only the form is looked
// at: whether the statement is valid is SQLite's to say.
std::optional<SelectShape> shapeOfSelect(QByteArrayView statement);
