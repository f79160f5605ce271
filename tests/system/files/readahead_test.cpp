#include "tests/support/filestest.h"

#include <fcntl.h>
#include <functional>
#include <thread>
#include <unistd.h>

#include <sys/mman.h>

using ExpectTails = SystemFilesTest;

namespace {

// Without touching it: reading, even without waiting, has the system fetch it.
bool isInMemory(const QByteArray& path, off_t page)
{
    const Descriptor file(open(path.constData(), O_RDONLY));
    const auto size = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    void* const place = mmap(nullptr, size, PROT_READ, MAP_SHARED, file.get(), page);
    unsigned char resident = 0;
    mincore(place, size, &resident);
    munmap(place, size);
    return (resident & 1U) != 0;
}

// Makes the system forget the file's content; false where it does not.
bool forget(const QByteArray& path)
{
    const Descriptor file(open(path.constData(), O_RDONLY));
    return fsync(file.get()) == 0 && posix_fadvise(file.get(), 0, 0, POSIX_FADV_DONTNEED) == 0 &&
           !isInMemory(path, 0);
}

bool comesWithin5Seconds(const std::function<bool()>& condition)
{
    for (int i = 0; i < 500; ++i) {
        if (condition())
            return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
}

} // namespace

TEST_F(ExpectTails, fetchesTheEndsOfFilesThatAreNotInMemory)
{
    constexpr off_t kSize = 4 << 20;
    QStringList names;
    for (int i = 0; i < 20; ++i) {
        names += QString::number(i);
        m_tree.write("d/" + names.last().toLatin1(), QByteArray(kSize, 'x'));
        if (!forget(at("d/" + names.last().toLatin1())))
            GTEST_SKIP() << "this file system does not forget what it read";
    }
    m_files.expectTails(QStringLiteral("D:\\"), names, 257);
    for (const QString& name : names) {
        const QByteArray path = at("d/" + name.toLatin1());
        ASSERT_TRUE(comesWithin5Seconds([&] { return isInMemory(path, kSize - 4096); }));
        EXPECT_FALSE(isInMemory(path, 0));
    }
}

TEST_F(ExpectTails, noticesAColdDirectoryAfterManyWarmOnes)
{
    QStringList names;
    for (int i = 0; i < 3; ++i) {
        names += QString::number(i);
        m_tree.write("d/" + names.last().toLatin1(), QByteArray(1 << 20, 'x'));
    }
    for (int i = 0; i < 1000; ++i)
        m_files.expectTails(QStringLiteral("D:\\"), names, 257);
    for (const QString& name : names)
        if (!forget(at("d/" + name.toLatin1())))
            GTEST_SKIP() << "this file system does not forget what it read";
    for (int i = 0; i < 20; ++i)
        m_files.expectTails(QStringLiteral("D:\\"), names, 257);
    ASSERT_TRUE(comesWithin5Seconds([&] { return isInMemory(at("d/0"), (1 << 20) - 4096); }));
}

TEST_F(ExpectTails, neverFailsAndWaitsForNothing)
{
    mkfifo(at("d/pipe").constData(), 0666);
    m_tree.write("d/empty");
    m_tree.write("d/short", "x");
    const QStringList names{QStringLiteral("nothing"), QStringLiteral("empty"), QStringLiteral("short"),
                            QStringLiteral("pipe")};
    for (const char16_t* directory : {u"D:\\", u"D:\\nothing", u"D:\\short", u"Q:\\", u""})
        m_files.expectTails(QString::fromUtf16(directory), names, 257);
    m_files.expectTails(QStringLiteral("D:\\"), {}, 257);
    EXPECT_EQ(filesIn("d"), 3U);
}
