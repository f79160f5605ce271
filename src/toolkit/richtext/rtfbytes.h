// Turns the bytes of an RTF text into characters. Which code page they are of, its head or the font tells.
#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringDecoder>

#include <map>

class CodePage;

class RtfBytes {
public:
    static constexpr int kUsualPage = 0;
    static constexpr int kSymbols = -1; // of a font of signs

    explicit RtfBytes(const CodePage& usual) : m_usual(usual) {}

    // A page that is not known is taken for the usual one.
    QString toText(QByteArrayView bytes, int page);

    static int pageOfCharset(int charset);

private:
    QStringDecoder* decoderOf(int page);

    const CodePage& m_usual;
    std::map<int, QStringDecoder> m_decoders;
};
