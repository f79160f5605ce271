// Tells what a reader of a printed PDF file sees: its text, where it stands, the pages' sizes.
#pragma once

#include "tests/support/temporary.h"

#include <QImage>
#include <QProcess>
#include <QRectF>
#include <QRegularExpression>
#include <QStringList>

class PrintedText {
public:
    explicit PrintedText(QString pdf) : m_pdf(std::move(pdf)) {}

    QString text() const { return textBy({QStringLiteral("-layout"), QStringLiteral("-nopgbrk")}); }
    QStringList lines() const { return text().split(u'\n', Qt::SkipEmptyParts); }
    QStringList page(int number) const // counted from 1
    {
        const QString only = QString::number(number);
        return textBy({QStringLiteral("-f"), only, QStringLiteral("-l"), only, QStringLiteral("-nopgbrk"),
                       QStringLiteral("-layout")})
            .split(u'\n', Qt::SkipEmptyParts);
    }
    int pageCount() const { return static_cast<int>(textBy({QStringLiteral("-layout")}).count(u'\f')); }

    // As they are looked at, in points.
    QList<QSizeF> pageSizes() const
    {
        const QString content =
            QString::fromUtf8(outputOf("pdfinfo", {QStringLiteral("-f"), QStringLiteral("1"),
                                                   QStringLiteral("-l"), QStringLiteral("-1"), m_pdf}));
        static const QRegularExpression form(
            QStringLiteral("^Page +\\d+ size: +([0-9.]+) x ([0-9.]+) pts.*\\nPage +\\d+ rot: +(\\d+)$"),
            QRegularExpression::MultilineOption);
        QList<QSizeF> found;
        for (auto match = form.globalMatch(content); match.hasNext();) {
            const QRegularExpressionMatch one = match.next();
            const QSizeF size(one.captured(1).toDouble(), one.captured(2).toDouble());
            found += one.captured(3).toInt() % 180 == 0 ? size : size.transposed();
        }
        return found;
    }

    // Returns for each word that matches its place on its page, in points.
    QList<QRectF> boxes(const QString& word) const
    {
        const QString number = QStringLiteral("=\"([0-9.]+)\"");
        const QRegularExpression form(QStringLiteral("xMin%1 yMin%1 xMax%1 yMax%1>").arg(number) + word +
                                      QStringLiteral("</word>"));
        const QString content = textBy({QStringLiteral("-bbox")});
        QList<QRectF> found;
        for (auto match = form.globalMatch(content); match.hasNext();) {
            const QRegularExpressionMatch one = match.next();
            found += QRectF(QPointF(one.captured(1).toDouble(), one.captured(2).toDouble()),
                            QPointF(one.captured(3).toDouble(), one.captured(4).toDouble()));
        }
        return found;
    }

    // Paints the page as it comes out of a printer, a pixel to two points: unlike the text, without what is
    // cut off.
    QImage picture(int page) const
    {
        const Temporary directory;
        const QString number = QString::number(page);
        outputOf("pdftoppm", {QStringLiteral("-png"), QStringLiteral("-r"), QStringLiteral("36"),
                              QStringLiteral("-f"), number, QStringLiteral("-l"), number,
                              QStringLiteral("-singlefile"), m_pdf, QString::fromUtf8(directory.at("page"))});
        return QImage(QString::fromUtf8(directory.at("page.png")));
    }

private:
    static QByteArray outputOf(const char* program, const QStringList& arguments)
    {
        QProcess process;
        process.start(QString::fromUtf8(program), arguments);
        return process.waitForFinished(60000) ? process.readAllStandardOutput() : QByteArray();
    }
    QString textBy(QStringList options) const
    {
        options << m_pdf << QStringLiteral("-");
        return QString::fromUtf8(outputOf("pdftotext", options));
    }

    QString m_pdf;
};

inline QString numberedLines(int first, int count)
{
    QString out;
    for (int i = first; i < first + count; ++i)
        out += QStringLiteral("line %1\n").arg(i);
    return out;
}
