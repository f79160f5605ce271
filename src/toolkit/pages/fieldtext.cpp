#include "toolkit/pages/fieldtext.h"

namespace {

const QString* valueOf(QChar placeholder, const FieldValues& values)
{
    static const QString percent(u'%');
    switch (placeholder.unicode()) {
    case u'D':
        return &values.date;
    case u'i':
        return &values.title;
    case u'p':
        return &values.page;
    case u'P':
        return &values.pages;
    case u'%':
        return &percent;
    default:
        return nullptr;
    }
}

} // namespace

QString fieldText(const QString& text, const FieldValues& values)
{
    QString out;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isSign = text[i] == u'%' && i + 1 < text.size();
        const QString* const value = isSign ? valueOf(text[i + 1], values) : nullptr;
        if (value)
            ++i;
        out += value ? *value : QString(text[i]);
    }
    return out;
}
