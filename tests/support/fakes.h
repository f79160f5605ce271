// Stands in for what would leave the process: questions to the user, other programs, the printer, the
// program's end.
#pragma once

#include "base/runtimeerror.h"
#include "platform/dialogs.h"
#include "platform/launcher.h"
#include "platform/printedpages.h"
#include "platform/printer.h"
#include "platform/program.h"
#include "posix/processmark.h"

#include <QStringList>

#include <functional>
#include <vector>

class FakeDialogs : public Dialogs {
public:
    Answer message(const Message& message) override
    {
        messages.push_back(message);
        if (onMessage)
            onMessage(message);
        return answer;
    }
    std::optional<QString> inputBox(const QString& prompt, const QString& title) override
    {
        asked += title + u'|' + prompt;
        return inputAnswer;
    }
    std::optional<QString> openFile(const FileQuestion& question) override
    {
        return askFile(u"open"_qs, question);
    }
    std::optional<QString> saveFile(const FileQuestion& question) override
    {
        return askFile(u"save"_qs, question);
    }
    std::optional<QString> browseFolder(const QString& title) override
    {
        asked += u"folder|"_qs + title;
        if (onAskFile)
            onAskFile();
        return folderAnswer;
    }
    void runTimeError(const RunTimeError& error) override
    {
        errors.push_back(error.number());
        lastError = error.text() + u'|' + error.advice();
    }

    // Returns "title|text" of the message with that index; the last ones are counted from -1.
    QString said(int index) const
    {
        const auto size = static_cast<int>(messages.size());
        const int at = index < 0 ? size + index : index;
        if (at < 0 || at >= size)
            return QStringLiteral("(no message)");
        const Message& message = messages[static_cast<std::size_t>(at)];
        return message.title + u'|' + message.text;
    }

    QStringList asked; // "title|prompt", "open|title|file name|directory|object name" with "|filter" if any,
                       // "folder|title"
    std::optional<QString> inputAnswer;
    std::optional<QString> fileAnswer;
    int entryAnswer = 0; // of the filter
    std::optional<QString> folderAnswer;
    std::function<void()> onAskFile; // while the dialog is open
    std::vector<Message> messages;
    std::vector<int> errors;
    QString lastError; // "text|advice"
    std::function<void(const Message&)> onMessage;
    Answer answer = Answer::Ok;

private:
    std::optional<QString> askFile(const QString& kind, const FileQuestion& question)
    {
        QStringList parts{kind, question.title, question.fileName, question.directory, question.objectName};
        if (!question.filter.isEmpty())
            parts += question.filter;
        asked += parts.join(u'|');
        if (onAskFile)
            onAskFile();
        if (question.chosenEntry)
            *question.chosenEntry = entryAnswer;
        return fileAnswer;
    }
};

class FakeLauncher : public Launcher {
public:
    void open(const QString& target) override
    {
        if (fails)
            throw RunTimeError(ErrorNumber::FileNotFound);
        opened += target;
    }
    void start(const QString& program) override
    {
        if (fails)
            throw RunTimeError(ErrorNumber::FileNotFound);
        started += program;
    }

    QStringList opened;
    QStringList started;
    bool fails = false;
};

class FakePrinter : public Printer {
public:
    void print(const QString& text) override
    {
        printed += text;
        isOpen = true;
    }
    void endDocument() override
    {
        ++ended;
        isOpen = false;
    }
    bool hasOpenDocument() const override { return isOpen; }
    void printAtOnce(const QStringList& lines) override { jobs += lines; }
    Orientation orientation() const override { return current; }
    void setOrientation(Orientation orientation) override { current = orientation; }

    Paper paper() const override { return sheet; }
    PrintEnd printPages(PrintedPages& pages, const std::function<bool(int, int)>& progress) override
    {
        const int count = pages.layOut(sheet);
        titles += pages.title();
        pagesPrinted = 0;
        while (pagesPrinted < count) {
            if (!progress(pagesPrinted, count))
                return PrintEnd::Cancelled;
            ++pagesPrinted;
        }
        return PrintEnd::Printed;
    }

    Orientation current = Orientation::Portrait;
    Paper sheet;
    QStringList titles; // of documents of pages
    int pagesPrinted = 0;

    QStringList printed;
    QList<QStringList> jobs; // each printed at once
    bool isOpen = false;
    int ended = 0;
};

class FakeProgram : public Program {
public:
    explicit FakeProgram(QString ownDirectory = {}) : m_directory(std::move(ownDirectory)) {}

    void yield() override
    {
        ++yields;
        if (onYield)
            onYield();
    }
    void end(int exitStatus) override
    {
        if (!m_ending)
            status = exitStatus;
        m_ending = true;
    }
    bool ending() const override { return m_ending; }
    QString directory() const override { return m_directory; }
    QString title() const override { return QStringLiteral("Songbin"); }
    QString version() const override { return QStringLiteral("1.2.3"); }
    QString executableName() const override { return QStringLiteral("Songbin"); }
    double secondsSinceMidnight() const override { return seconds; }
    void randomize() override { ++seeded; }
    double random() override { return nextRandom; }
    QByteArray ownMark() const override { return processmark::own(); }
    bool isRunning(const QByteArray& mark) const override { return processmark::isRunning(mark); }
    void setBusyPointer(bool busy) override
    {
        busyPointer = busy;
        wasBusy = wasBusy || busy;
    }

    void beep() override { ++beeps; }

    std::function<void()> onYield;
    int beeps = 0;
    int yields = 0;
    int status = -1;
    double seconds = 43200;
    double nextRandom = 0;
    int seeded = 0;
    bool busyPointer = false;
    bool wasBusy = false;

private:
    QString m_directory;
    bool m_ending = false;
};
