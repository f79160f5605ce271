// Any bytes as an RTF file: they are read to their end, and no character of the text comes from nowhere.
#include "base/codepage.h"
#include "tests/fuzz/demand.h"
#include "toolkit/richtext/rtfreader.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

bool isKnown(QChar character)
{
    return character >= u' ' || character == u'\t';
}

qsizetype demandSoundRuns(const TextParagraph& paragraph)
{
    for (std::size_t i = 0; i < paragraph.runs.size(); ++i) {
        const TextRun& run = paragraph.runs[i];
        demand(!run.text.isEmpty(), "a run has a text");
        demand(std::all_of(run.text.begin(), run.text.end(), isKnown), "no control characters");
        demand(run.look.halfPoints >= 0 && run.look.halfPoints <= 288, "letters of a size within reason");
        demand(!run.look.colour || *run.look.colour <= 0xFFFFFF, "a colour");
        demand(i == 0 || paragraph.runs[i - 1].look != run.look, "neighbours differ in their looks");
    }
    return static_cast<qsizetype>(paragraph.runs.size());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const CodePage kPage = CodePage::windows1252();
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const RichText text = readRtf(bytes, kPage);

    qsizetype pieces = 0;
    for (const TextParagraph& paragraph : text.paragraphs)
        pieces += 1 + demandSoundRuns(paragraph);
    demand(text.isWhole ? pieces <= RichText::kMostPieces : bytes.size() > RichText::kMostPieces,
           "only a long file is too long");
    demand(plainText(text).size() <= bytes.size(), "no character comes from nowhere");
    return 0;
}
