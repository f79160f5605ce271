#include "toolkit/pages/exportchoice.h"

#include "platform/dialogs.h"
#include "platform/files.h"

#include <QCoreApplication>

#include <algorithm>
#include <vector>

namespace {

class Words {
    Q_DECLARE_TR_FUNCTIONS(ExportChoice)
};

struct Kind {
    ExportKind kind;
    QString text;
    QString patterns;
};

std::vector<Kind> kinds()
{
    return {{ExportKind::Pdf, Words::tr("PDF documents (*.pdf)"), QStringLiteral("*.pdf")},
            {ExportKind::Html, Words::tr("Web pages (*.html)"), QStringLiteral("*.html;*.htm")},
            {ExportKind::Csv, Words::tr("Comma-separated values (*.csv)"), QStringLiteral("*.csv")}};
}

QString filterText()
{
    QStringList parts;
    for (const Kind& kind : kinds())
        parts << kind.text << kind.patterns;
    return parts.join(u'|');
}

bool fits(const QString& path, const Kind& kind)
{
    const QStringList patterns = kind.patterns.split(u';');
    return std::ranges::any_of(patterns, [&](const QString& pattern) {
        return path.endsWith(pattern.sliced(1), Qt::CaseInsensitive);
    });
}

std::optional<ExportKind> namedKind(const QString& path)
{
    for (const Kind& kind : kinds())
        if (fits(path, kind))
            return kind.kind;
    return std::nullopt;
}

ExportKind kindAt(int entry)
{
    const std::vector<Kind> all = kinds();
    return all[static_cast<std::size_t>(std::clamp(entry, 0, static_cast<int>(all.size()) - 1))].kind;
}

void refuseToReplace(Dialogs& dialogs, const QString& path)
{
    const QString text = Words::tr("%1 is there already and is no export, so that none takes its place.\n\n"
                                   "Choose another name, or one that ends with .pdf, .html or .csv.");
    dialogs.message({.text = text.arg(path), .title = Words::tr("Export"), .icon = MessageIcon::Warning});
}

// A name may hold signs that no file's has.
QString fileNameOf(QString name)
{
    for (QChar& c : name)
        if (QStringLiteral("\\/:*?\"<>|").contains(c))
            c = u'_';
    return name + QStringLiteral(".pdf");
}

} // namespace

std::optional<ExportChoice> askForExport(Dialogs& dialogs, Files& files, const QString& name)
{
    int entry = 0;
    const std::optional<QString> path = dialogs.saveFile({.title = Words::tr("Export"),
                                                          .fileName = fileNameOf(name),
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
