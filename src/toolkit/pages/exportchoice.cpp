#include "toolkit/pages/exportchoice.h"

#include "platform/dialogs.h"
#include "platform/files.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace {

struct Kind {
    ExportKind kind;
    const char* text;
    const char* patterns;
};

constexpr std::array kKinds{
    Kind{ExportKind::Pdf, QT_TRANSLATE_NOOP("ExportChoice", "PDF documents (*.pdf)"), "*.pdf"},
    Kind{ExportKind::Html, QT_TRANSLATE_NOOP("ExportChoice", "Web pages (*.html)"), "*.html;*.htm"},
    Kind{ExportKind::Csv, QT_TRANSLATE_NOOP("ExportChoice", "Comma-separated values (*.csv)"), "*.csv"},
};

QString filterText()
{
    QStringList parts;
    for (const Kind& kind : kKinds)
        parts << QCoreApplication::translate("ExportChoice", kind.text) << QLatin1String(kind.patterns);
    return parts.join(u'|');
}

bool fits(const QString& path, const Kind& kind)
{
    const QStringList patterns = QString::fromLatin1(kind.patterns).split(u';');
    return std::ranges::any_of(patterns, [&](const QString& pattern) {
        return path.endsWith(pattern.sliced(1), Qt::CaseInsensitive);
    });
}

std::optional<ExportKind> namedKind(const QString& path)
{
    const auto named = std::ranges::find_if(kKinds, [&](const Kind& kind) { return fits(path, kind); });
    return named == kKinds.end() ? std::nullopt : std::optional(named->kind);
}

ExportKind kindAt(int entry)
{
    return kKinds[static_cast<std::size_t>(std::clamp<int>(entry, 0, kKinds.size() - 1))].kind;
}

void refuseToReplace(Dialogs& dialogs, const QString& path)
{
    const QString text = QCoreApplication::translate(
        "ExportChoice", "%1 is there already and is no export, so that none takes its place.\n\n"
                        "Choose another name, or one that ends with .pdf, .html or .csv.");
    dialogs.message({.text = text.arg(path),
                     .title = QCoreApplication::translate("ExportChoice", "Export"),
                     .icon = MessageIcon::Warning});
}

// A title may hold signs that no file's name has.
QString fileNameOf(QString title)
{
    for (QChar& c : title)
        if (QStringLiteral("\\/:*?\"<>|").contains(c))
            c = u'_';
    return title + QStringLiteral(".pdf");
}

} // namespace

std::optional<ExportChoice> askForExport(Dialogs& dialogs, Files& files, const QString& title)
{
    int entry = 0;
    const std::optional<QString> path =
        dialogs.saveFile({.title = QCoreApplication::translate("ExportChoice", "Export"),
                          .fileName = fileNameOf(title),
                          .directory = QStringLiteral("C:\\"),
                          .objectName = QStringLiteral("CommonDialog1"),
                          .filter = filterText(),
                          .chosenEntry = &entry});
    if (!path)
        return std::nullopt;
    const std::optional<ExportKind> named = namedKind(*path);
    if (!named && files.isTaken(*path)) {
        refuseToReplace(dialogs, *path);
        return std::nullopt;
    }
    return ExportChoice{*path, named.value_or(kindAt(entry))};
}
