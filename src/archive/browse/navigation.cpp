#include "archive/browse/navigation.h"

#include "database/cursor/recordset.h"
#include "platform/keycode.h"
#include "platform/program.h"

namespace {

constexpr int kCtrlAlone = 2;

} // namespace

navigation::Step navigation::stepOfKey(int keyCode, int shift)
{
    switch (keyCode) {
    case keycode::Escape:
        return Step::Close;
    case keycode::End:
        return Step::Last;
    case keycode::Home:
        return Step::First;
    case keycode::Up:
    case keycode::PageUp:
        return shift == kCtrlAlone ? Step::First : Step::Previous;
    case keycode::Down:
    case keycode::PageDown:
        return shift == kCtrlAlone ? Step::Last : Step::Next;
    default:
        return Step::None;
    }
}

void navigation::goFirst(Recordset& records)
{
    records.moveFirst();
}

void navigation::goLast(Recordset& records)
{
    records.moveLast();
}

void navigation::goNext(Recordset& records, Program& program)
{
    if (!records.eof())
        records.moveNext();
    if (records.eof() && records.recordCount() > 0) {
        program.beep();
        records.moveLast();
    }
}

void navigation::goPrevious(Recordset& records, Program& program)
{
    if (!records.bof())
        records.movePrevious();
    if (records.bof() && records.recordCount() > 0) {
        program.beep();
        records.moveFirst();
    }
}

void navigation::deleteCurrent(Recordset& records)
{
    records.deleteRecord();
    records.moveNext();
    if (records.eof() && records.recordCount() > 0)
        records.moveLast();
}
