// Says to SkinDiagnostics what the reading of a skin came upon. Without notes it does nothing.
#pragma once

#include <QRect>
#include <QString>

#include <map>
#include <set>

class OutlinePoints;
class RunTimeError;
class SkinDiagnostics;
class SkinToken;
struct SkinButton;
struct SkinDisplay;

class SkinLint {
public:
    explicit SkinLint(SkinDiagnostics* notes) : m_notes(notes) {}

    // All get the lines on which an element began and ended.
    void unknownLetter(int line, const SkinToken& token);
    void noSuchNumber(int line, const SkinToken& token, int first, int last);
    void numberZero(int line, const SkinToken& token);
    void tooSmall(int line, const SkinToken& token);
    void placed(int line, const SkinToken& token); // once more?
    void ended(int line, int lastLine, const SkinToken& token);
    void button(int line, const SkinButton& button);
    void display(int line, const SkinDisplay& display);
    void missing(int line, const QString& what, const QString& path);
    // Is told when no "?" follows: a skin that asks can do without the picture.
    void missingWork(int line, const QString& path);
    void used(const QString& path);
    void asked(bool withoutPicture); // it goes on without the one that is missing
    void notAsked();
    void end(int line, const SkinToken& token); // the "E"
    void noLabel(const QString& label);         // the jump's line is where it was met
    void jump(int line) { m_jumpLine = line; }
    void outline(int line, const OutlinePoints& points);
    void windowSize(int line, QSize size);
    void window(int line, int hoverStyle, int position);
    void infoCut(int line);
    void beyondPicture(int line, const QString& path, const QRect& part); // once a picture
    void unknownExtra(int line, QStringView name);
    void noMark(int line);
    void unusableHint(int line, const QString& path);
    void error(int line, const RunTimeError& error);

private:
    void note(int line, const QString& text);

    SkinDiagnostics* m_notes;
    int m_unknownLine = 0; // one note a line for what is no element
    int m_missingLine = 0;
    QString m_missingWork{}; // a work picture, until it is known whether the skin asks
    QString m_lacking{};     // the same, until one was loaded
    QString m_beyond{};      // the picture of the last remark of that kind
    int m_jumpLine = 0;
    std::set<QString> m_placed{};
    std::map<QString, int> m_keys{};
};
