// Holds what the tests of control files share: one of given lines, read onto a RecordingTarget.
#pragma once

#include "base/codepage.h"
#include "player/skin/skindiagnostics.h"
#include "player/skin/skinhost.h"
#include "player/skin/skininterpreter.h"
#include "player/skin/skinreader.h"
#include "tests/support/recordingtarget.h"

#include <gtest/gtest.h>

#include <map>

struct RecordingHost : SkinHost {
    std::optional<QString> importDirectory(const SkinImport& proposed) override
    {
        asked += u"%1|%2|%3"_qs.arg(proposed.directory, proposed.filter, proposed.file);
        return answer;
    }
    std::optional<QByteArray> hints(const QString& path) override
    {
        const auto found = texts.find(path);
        return found == texts.end() ? std::nullopt : std::optional(found->second);
    }
    void chosen() override { ++timesChosen; }
    void message(const QString& text) override { messages += text; }
    void yield() override
    {
        ++yields;
        if (onYield)
            onYield();
    }
    bool closed() const override { return isClosed; }

    QStringList asked;
    std::optional<QString> answer;
    std::map<QString, QByteArray> texts;
    int timesChosen = 0;
    QStringList messages;
    int yields = 0;
    std::function<void()> onYield;
    bool isClosed = false;
};

struct RecordingNotes : SkinDiagnostics {
    void note(int line, const QString& text) override { notes += u"%1: %2"_qs.arg(line).arg(text); }
    void used(const QString& path) override { usedFiles += path; }
    void lacks(const QString& path) override { lacking += path; }
    QStringList notes;
    QStringList usedFiles;
    QStringList lacking;
};

inline const QByteArray kHeader = "Tonedeck Skin\n"
                                  "100,50\n"
                                  "80,40\n"
                                  "60,30\n"
                                  "main.bmp,parts.bmp\n"
                                  "2,5,0,0,0,0,0,0\n"; // elements begin on line 7

struct SkinWorld : testing::Test {
    // Returns all calls for a whole file; texts and messages stay in their members.
    QStringList callsFor(const QByteArray& file)
    {
        target.calls.clear();
        SkinReader reader(file, codePage);
        SkinInterpreter interpreter({reader, target, host, texts}, &notes);
        recognised = interpreter.isSkin();
        if (recognised)
            interpreter.load(u"D:\\skins\\"_qs);
        return target.calls;
    }

    // Returns the calls for element lines behind a sound header, between placing the window and the end.
    QStringList elements(const QByteArray& lines)
    {
        QStringList calls = callsFor(kHeader + lines);
        const QStringList before = {u"begin"_qs,
                                    u"sizes 100x50 80x40 60x30"_qs,
                                    u"background D:\\skins\\main.bmp"_qs,
                                    u"resource D:\\skins\\parts.bmp"_qs,
                                    u"reset"_qs,
                                    u"hover 2"_qs,
                                    u"window 5"_qs};
        const QStringList after = {u"release"_qs, u"repaint"_qs, u"end"_qs};
        EXPECT_EQ(calls.first(before.size()), before);
        EXPECT_EQ(calls.last(after.size()), after);
        return calls.mid(before.size(), calls.size() - before.size() - after.size());
    }

    CodePage codePage = CodePage::windows1252();
    RecordingTarget target;
    RecordingHost host;
    RecordingNotes notes;
    SkinTexts texts;
    bool recognised = false;
};
