#include "toolkit/richtext/rtfbytes.h"

#include "base/codepage.h"

#include <algorithm>
#include <iterator>

namespace {

struct Page {
    int number;
    const char* name;
};

constexpr Page kPages[] = {
    {437, "IBM437"},        {737, "IBM737"},        {775, "IBM775"},        {850, "IBM850"},
    {852, "IBM852"},        {855, "IBM855"},        {857, "IBM857"},        {858, "IBM858"},
    {860, "IBM860"},        {861, "IBM861"},        {862, "IBM862"},        {863, "IBM863"},
    {864, "IBM864"},        {865, "IBM865"},        {866, "IBM866"},        {869, "IBM869"},
    {874, "windows-874"},   {932, "windows-932"},   {936, "GB18030"},       {949, "windows-949"},
    {950, "windows-950"},   {1250, "windows-1250"}, {1251, "windows-1251"}, {1252, "windows-1252"},
    {1253, "windows-1253"}, {1254, "windows-1254"}, {1255, "windows-1255"}, {1256, "windows-1256"},
    {1257, "windows-1257"}, {1258, "windows-1258"}, {10000, "macintosh"},   {65001, "UTF-8"},
};

struct Charset {
    int charset;
    int page;
};

constexpr Charset kCharsets[] = {
    {2, RtfBytes::kSymbols},
    {77, 10000},
    {128, 932},
    {129, 949},
    {134, 936},
    {136, 950},
    {161, 1253},
    {162, 1254},
    {163, 1258},
    {177, 1255},
    {178, 1256},
    {186, 1257},
    {204, 1251},
    {222, 874},
    {238, 1250},
    {255, 437},
};

// Of the signs only those that lists begin with have a character of their own here.
QString signsAsText(QString text)
{
    return text.replace(QChar(0xB7), QChar(0x2022)).replace(QChar(0xA7), QChar(0x25AA));
}

} // namespace

int RtfBytes::pageOfCharset(int charset)
{
    const auto* const found = std::ranges::find(kCharsets, charset, &Charset::charset);
    return found == std::end(kCharsets) ? kUsualPage : found->page;
}

QStringDecoder* RtfBytes::decoderOf(int page)
{
    const auto known = m_decoders.find(page);
    if (known != m_decoders.end())
        return &known->second;
    const auto* const found = std::ranges::find(kPages, page, &Page::number);
    if (found == std::end(kPages))
        return nullptr;
    return &m_decoders.emplace(page, QStringDecoder(found->name, QStringConverter::Flag::Stateless))
                .first->second;
}

QString RtfBytes::toText(QByteArrayView bytes, int page)
{
    if (page == kSymbols)
        return signsAsText(m_usual.toText(bytes));
    QStringDecoder* decoder = decoderOf(page);
    return decoder && decoder->isValid() ? QString(decoder->decode(bytes)) : m_usual.toText(bytes);
}
