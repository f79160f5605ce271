// A static, client-side cursor holds the rows of one query as they were when it was opened; changes of them
// go straight to the archive.
//
// It stands on a row, before the first, or behind the last. A change begins with the first value that is set;
// moving away saves it. A row that is added stands behind all others until the next requery.
#pragma once

#include "database/cursor/resultset.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

class Connection;
struct KnownRow;
struct NewValue;

class Recordset : public QObject {
    Q_OBJECT

public:
    using Bookmark = std::int64_t; // greater than 0; of this recordset until it is opened again or requeried
    enum class EditMode { None, InProgress, Add };

    // It stands on the first row then. It throws RunTimeError as Connection does, and stays as it was; a
    // second statement in the text, or one that returns no columns, is refused before it runs
    // (kStatementError). The connection is used for as long as the recordset is.
    void open(const QString& statement, Connection& connection);
    void requery(); // saves a pending change first; then as open

    int recordCount() const; // without the row that is being added
    const QStringList& fieldNames() const { return m_rows.names; }
    bool bof() const; // before the first row, and always without rows
    bool eof() const; // behind the last row, and always without rows

    // Moves throw what saving a pending change throws, and then stay. Without rows, or beyond the end
    // already, they throw kNoCurrentRecord.
    void moveFirst();
    void moveLast();
    void moveNext();
    void movePrevious();
    int absolutePosition() const; // 1-based; 0 when there is no current row
    void setAbsolutePosition(int position);
    Bookmark bookmark() const;           // throws kNoCurrentRecord
    void setBookmark(Bookmark bookmark); // throws kInvalidBookmark, also for a row that was deleted

    // Takes "<field> like '<pattern>'" where "*" stands for any characters, or "<field> = '<text>'"; case
    // does not count, a null is never found. It goes from the current row to the first that fits, else behind
    // the last one. Throws kBadCriterion for any other text and stays.
    void find(const QString& criterion);

    // Gives nothing for a null, and of a row with a pending change the new values. Field names ignore case.
    // Throws 3021 without a current row, 3265 for an unknown field.
    std::optional<QString> value(const QString& field) const;
    std::optional<QString> value(int column) const;
    // Returns the value in the row at that position, which must be there, without going to it; nothing
    // pending is seen.
    std::optional<QString> valueAt(int position, int column) const;

    EditMode editMode() const { return m_mode; }
    void setValue(const QString& field, const QString& value);
    void addNew(); // saves a pending change first; the new row is the current one
    // Saves what is pending, if anything is. Throws RunTimeError: kRowNotFound when the row was changed or
    // deleted by somebody else, kEmptyRow for a new row without any value, as Connection does; the change
    // stays pending. What Connection::confirm throws is no such case: the change is stored and pending no
    // more.
    void update();
    void updateBatch() { update(); } // all pending changes: there is never more than one
    void cancelUpdate();             // a new row is dropped, and the row before it current again
    // Deletes the current row from the archive; a pending change of it is dropped. There is no current row
    // then, and the next move starts from its place.
    void deleteRecord();

    // Is asked before a row is changed, added or deleted; false refuses it (kOperationCancelled).
    std::function<bool()> willChangeRecord;

Q_SIGNALS:
    void moveComplete();  // another row, or none, is the current one; also after opening
    void fieldsChanged(); // the current row has other values
    void rowsReset();
    void rowChanged(int position);
    void rowAdded(int position);
    void rowRemoved(int position);

private:
    using Values = std::vector<std::optional<QString>>;

    int rowCount() const { return static_cast<int>(m_rows.order.size()); }
    int rowAt(int position) const { return m_rows.order[static_cast<std::size_t>(position)]; }
    bool hasCurrent() const;
    void requireCurrent() const;
    void requireRows() const;
    void requireChangeable() const;
    int columnOf(const QString& field) const;

    void take(ResultSet rows);
    void leave();
    void standOn(int row);
    void begin(EditMode mode);
    void endEdit();
    void askBeforeChange() const;
    void saveChange();
    void saveNew();
    std::vector<NewValue> newValues() const;
    KnownRow known(int row) const;

    Connection* m_connection = nullptr;
    QString m_statement;
    ResultSet m_rows;
    int m_generation = 0; // of the bookmarks
    int m_row = 0;        // position counted from 0; -1 before the first, the number of rows behind the last
    bool m_onGap = false; // the current row was deleted: m_row is the one that followed it
    EditMode m_mode = EditMode::None;
    int m_rowBeforeAdd = 0;
    Values m_pending; // by column; nothing where nothing was set
};
