// Makes steps through a recordset, as the buttons and keys of the record windows take them.
#pragma once

class Program;
class Recordset;

namespace navigation {

enum class Step { None, Close, First, Previous, Next, Last };

// Kept: Ctrl counts only alone, so Ctrl with Shift or Alt steps like no key at all. Page Up and Page Down
// step by one.
Step stepOfKey(int keyCode, int shift);

void goFirst(Recordset& records);
void goLast(Recordset& records);
// Past the last row of some there is one beep, and the last row stays the current one. It is the same from
// behind the last row.
void goNext(Recordset& records, Program& program);
void goPrevious(Recordset& records, Program& program);

// Deletes the current row at once, without a question, and goes to the next one, or the last.
void deleteCurrent(Recordset& records);

} // namespace navigation
