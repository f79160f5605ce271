#include "archive/reports/shapedcommand.h"

#include "database/connection/sqlitecheck.h"
#include "database/sql/sqltokens.h"

namespace {

class Reader {
public:
    explicit Reader(QByteArrayView text) : m_text(text), m_tokens(text) { advance(); }

    ShapedCommand read()
    {
        ShapedCommand command;
        expect("SHAPE");
        command.statement = readStatement();
        expect("AS");
        command.children = readName();
        expect("COMPUTE");
        expectChildren(command.children);
        expect("BY");
        do
            command.by += readName();
        while (pass(","));
        pass(";");
        if (!m_token.text.isEmpty())
            refuse(QStringLiteral("nothing can stand behind the columns, but there is "));
        return command;
    }

private:
    void advance() { m_token = m_tokens.next(); }

    bool pass(QByteArrayView word)
    {
        if (!m_token.is(word))
            return false;
        advance();
        return true;
    }

    [[noreturn]] void refuse(const QString& reason) const
    {
        constexpr qsizetype kShown = 40;
        const QByteArray found = m_token.text.first(std::min(kShown, m_token.text.size())).toByteArray();
        throwStatementError(
            reason + (found.isEmpty() ? QStringLiteral("the end of the command") : QString::fromUtf8(found)));
    }

    void expect(QByteArrayView word)
    {
        if (!pass(word))
            refuse(QStringLiteral("%1 is expected, not ").arg(QString::fromUtf8(word)));
    }

    // A brace in a quoted text is none.
    QString readStatement()
    {
        if (!m_token.is("{"))
            refuse(QStringLiteral("{ is expected, not "));
        const qsizetype begin = m_token.at + 1;
        int depth = 1;
        while (depth > 0) {
            advance();
            if (m_token.text.isEmpty())
                refuse(QStringLiteral("} is expected, not "));
            depth += m_token.is("{") ? 1 : m_token.is("}") ? -1 : 0;
        }
        const QByteArrayView statement = m_text.sliced(begin, m_token.at - begin).trimmed();
        if (statement.isEmpty())
            refuse(QStringLiteral("a statement is expected between { and "));
        advance();
        return QString::fromUtf8(statement);
    }

    void expectChildren(const QString& children)
    {
        const SqlToken token = m_token;
        if (readName().compare(children, Qt::CaseInsensitive) == 0)
            return;
        m_token = token;
        refuse(QStringLiteral("%1 is expected, not ").arg(children));
    }

    // Names stand bare or in quotes of any kind, in which there is none of that kind.
    QString readName()
    {
        const QByteArrayView name = m_token.isWord() ? m_token.text : quoted();
        if (name.isEmpty())
            refuse(QStringLiteral("a name is expected, not "));
        const QString text = QString::fromUtf8(name);
        advance();
        return text;
    }

    QByteArrayView quoted() const
    {
        const QByteArrayView text = m_token.text;
        if (text.size() < 2 || !QByteArrayView("'\"`[").contains(text.front()))
            return {};
        const char end = text.front() == '[' ? ']' : text.front();
        return text.indexOf(end, 1) == text.size() - 1 ? text.sliced(1, text.size() - 2) : QByteArrayView();
    }

    QByteArrayView m_text;
    SqlTokens m_tokens;
    SqlToken m_token;
};

} // namespace

bool isShapedCommand(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    return SqlTokens(bytes).next().is("SHAPE");
}

ShapedCommand parseShapedCommand(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    return Reader(bytes).read();
}
