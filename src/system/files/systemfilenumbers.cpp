#include "system/files/systemfilenumbers.h"

#include "posix/fileerror.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <exception>

namespace {

constexpr qsizetype kBuffer = 65536;
constexpr qsizetype kLongestLine = qsizetype{16} << 20; // else a file of one line would fill the memory

RunTimeError badMode()
{
    return RunTimeError(ErrorNumber::BadFileMode);
}

RunTimeError lineTooLong()
{
    return RunTimeError(ErrorNumber::OutOfStringSpace);
}

RunTimeError badPosition()
{
    return RunTimeError(ErrorNumber::BadRecordNumber);
}

qint64 lengthOf(int file)
{
    struct stat status {};
    if (fstat(file, &status) != 0)
        throw RunTimeError(ErrorNumber::DeviceIoError);
    return status.st_size;
}

// It is the library's own search for a byte; std::find goes one by one.
const char* found(const char* at, const char* end, char byte)
{
    const void* const place = std::memchr(at, byte, static_cast<std::size_t>(end - at));
    return place ? static_cast<const char*>(place) : end;
}

// The search goes in steps, so that a file that ends its lines with CR alone is not searched to its end for
// each of them.
const char* findLineEnd(const char* at, const char* end)
{
    constexpr std::ptrdiff_t kStep = 256;
    while (at != end) {
        const char* const stepEnd = at + std::min(end - at, kStep);
        const char* const feed = found(at, stepEnd, '\n');
        const char* const first = found(at, feed, '\r');
        if (first != stepEnd)
            return first;
        at = stepEnd;
    }
    return end;
}

// There are fewer bytes than asked for at the end of the file only.
qsizetype readAt(int file, char* to, qsizetype count, qint64 offset)
{
    qsizetype held = 0;
    while (held < count) {
        const ssize_t got = pread(file, to + held, static_cast<std::size_t>(count - held), offset + held);
        if (got == 0)
            break;
        if (got < 0 && errno != EINTR)
            throw RunTimeError(ErrorNumber::DeviceIoError);
        held += std::max<ssize_t>(got, 0);
    }
    return held;
}

} // namespace

SystemFileNumbers::~SystemFileNumbers()
{
    resumeNext([this] { closeAll(); });
}

int SystemFileNumbers::freeFile()
{
    for (int number = 1; number <= kLast; ++number)
        if (!m_slots[static_cast<std::size_t>(number)].file)
            return number;
    throw RunTimeError(ErrorNumber::TooManyFiles);
}

SystemFileNumbers::Slot& SystemFileNumbers::vacant(int number)
{
    if (number < 1 || number > kLast)
        throw RunTimeError(ErrorNumber::BadFileNumber);
    Slot& slot = m_slots[static_cast<std::size_t>(number)];
    if (slot.file)
        throw RunTimeError(ErrorNumber::FileAlreadyOpen);
    return slot;
}

SystemFileNumbers::Slot& SystemFileNumbers::inUse(int number)
{
    if (number < 1 || number > kLast || !m_slots[static_cast<std::size_t>(number)].file)
        throw RunTimeError(ErrorNumber::BadFileNumber);
    return m_slots[static_cast<std::size_t>(number)];
}

SystemFileNumbers::Slot& SystemFileNumbers::usedFor(int number, Use use)
{
    Slot& slot = inUse(number);
    if (slot.use != use)
        throw badMode();
    return slot;
}

void SystemFileNumbers::openReading(int number, const QString& path, Use use)
{
    Slot& slot = vacant(number);
    struct stat status {};
    slot.file = m_opener.forReading(path, status);
    slot.use = use;
    slot.length = status.st_size;
}

void SystemFileNumbers::openBinary(int number, const QString& path)
{
    openReading(number, path, Use::Binary);
}

void SystemFileNumbers::openInput(int number, const QString& path)
{
    openReading(number, path, Use::Input);
}

void SystemFileNumbers::openOutput(int number, const QString& path)
{
    Slot& slot = vacant(number);
    slot.file = m_opener.forWriting(path);
    slot.use = Use::Output;
}

qint64 SystemFileNumbers::length(int number)
{
    const Slot& slot = inUse(number);
    return slot.use == Use::Output ? lengthOf(slot.file.get()) + slot.buffer.size() : slot.length;
}

QByteArray SystemFileNumbers::get(int number, qint64 position, int count)
{
    Slot& slot = usedFor(number, Use::Binary);
    if (position < 1)
        throw badPosition();
    qsizetype wanted = std::max(count, 0);
    if (wanted > kBuffer) // no room for what the file does not hold
        wanted = std::clamp<qint64>(lengthOf(slot.file.get()) - position + 1, 0, wanted);
    QByteArray bytes(wanted, Qt::Uninitialized);
    bytes.truncate(readAt(slot.file.get(), bytes.data(), wanted, position - 1));
    slot.position = position - 1 + bytes.size();
    return bytes;
}

void SystemFileNumbers::print(int number, QStringView text)
{
    Slot& slot = usedFor(number, Use::Output);
    slot.buffer += text.toUtf8();
    if (slot.buffer.size() >= kBuffer)
        flush(slot);
}

void SystemFileNumbers::flush(Slot& slot)
{
    const QByteArray bytes = std::exchange(slot.buffer, {});
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t written =
            write(slot.file.get(), bytes.constData() + done, static_cast<std::size_t>(bytes.size() - done));
        if (written < 0 && errno != EINTR)
            throw fileError(errno);
        done += std::max<ssize_t>(written, 0);
    }
}

// A disk that gives less than the file holds has not been read to the file's end.
bool SystemFileNumbers::fill(Slot& slot)
{
    slot.buffer.remove(0, std::exchange(slot.at, 0));
    const qsizetype held = slot.buffer.size();
    slot.buffer.resize(held + kBuffer);
    const qsizetype got = readAt(slot.file.get(), slot.buffer.data() + held, kBuffer, slot.position);
    slot.buffer.truncate(held + got);
    slot.position += got;
    if (got == 0 && slot.position < slot.length)
        throw RunTimeError(ErrorNumber::DeviceIoError);
    return got > 0;
}

bool SystemFileNumbers::hasMore(Slot& slot)
{
    if (slot.at == slot.buffer.size() && !fill(slot))
        return false;
    if (std::exchange(slot.afterReturn, false) && slot.buffer.at(slot.at) == '\n') {
        ++slot.at;
        return hasMore(slot);
    }
    return true;
}

bool SystemFileNumbers::endOfFile(int number)
{
    Slot& slot = inUse(number);
    if (slot.use == Use::Binary)
        return slot.position >= lengthOf(slot.file.get());
    return slot.use == Use::Output || !hasMore(slot);
}

QByteArrayView SystemFileNumbers::lineView(int number)
{
    Slot& slot = usedFor(number, Use::Input);
    if (!hasMore(slot))
        throw RunTimeError(ErrorNumber::InputPastEnd);
    qsizetype length = 0;
    for (;;) {
        const char* const begin = slot.buffer.constData() + slot.at;
        const char* const end = slot.buffer.constEnd();
        length = findLineEnd(begin + length, end) - begin;
        if (length > kLongestLine)
            throw lineTooLong();
        if (begin + length != end || !fill(slot))
            break;
    }
    const QByteArrayView line(slot.buffer.constData() + slot.at, length);
    slot.at += length;
    if (slot.at < slot.buffer.size())
        slot.afterReturn = slot.buffer.at(slot.at++) == '\r';
    return line;
}

// The number is free whatever happens.
void SystemFileNumbers::finish(Slot& slot)
{
    Slot last = std::exchange(slot, Slot());
    if (last.use != Use::Output)
        return;
    flush(last);
    if (::close(last.file.release()) != 0)
        throw fileError(errno);
}

void SystemFileNumbers::close(int number)
{
    if (number >= 1 && number <= kLast && m_slots[static_cast<std::size_t>(number)].file)
        finish(m_slots[static_cast<std::size_t>(number)]);
}

void SystemFileNumbers::closeAll()
{
    std::exception_ptr first;
    for (int number = 1; number <= kLast; ++number) {
        try {
            close(number);
        } catch (const RunTimeError&) {
            first = first ? first : std::current_exception();
        }
    }
    if (first)
        std::rethrow_exception(first);
}
