#pragma once

#include "platform/filenumbers.h"
#include "system/files/fileopener.h"

#include <array>

class SystemFileNumbers : public FileNumbers {
public:
    explicit SystemFileNumbers(SystemDrives& drives) : m_opener(drives) {}
    ~SystemFileNumbers() override;
    SystemFileNumbers(const SystemFileNumbers&) = delete;
    SystemFileNumbers& operator=(const SystemFileNumbers&) = delete;

    int freeFile() override;
    void openBinary(int number, const QString& path) override;
    void openOutput(int number, const QString& path) override;
    void openInput(int number, const QString& path) override;
    qint64 length(int number) override;
    QByteArray get(int number, qint64 position, int count) override;
    void print(int number, QStringView text) override;
    bool endOfFile(int number) override;
    QByteArrayView lineView(int number) override;
    void close(int number) override;
    void closeAll() override;

private:
    enum class Use { Binary, Output, Input };

    struct Slot {
        Descriptor file;
        Use use = Use::Binary;
        qint64 length = 0;   // when it was opened
        qint64 position = 0; // binary: behind the last byte that was got
        QByteArray buffer;   // output: not yet written; input: not yet taken from "at" on
        qsizetype at = 0;
        bool afterReturn =
            false; // input: a line ended with CR, and the LF that may belong to it is not read yet
    };

    static constexpr int kLast = 511;

    Slot& vacant(int number);
    Slot& inUse(int number);
    Slot& usedFor(int number, Use use);
    void openReading(int number, const QString& path, Use use);
    static void flush(Slot& slot);
    static void finish(Slot& slot);
    static bool fill(Slot& slot);
    static bool hasMore(Slot& slot);

    FileOpener m_opener;
    std::array<Slot, kLast + 1> m_slots; // by number; 0 is never used
};
