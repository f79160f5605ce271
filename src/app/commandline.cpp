#include "app/commandline.h"

#include "system/media/mediapreparation.h"

#include <algorithm>
#include <utility>

namespace {

using Wish = CommandLine::Wish;

CommandLine wrong(const QByteArray& reason)
{
    return {.wish = Wish::Wrong, .reason = reason};
}

CommandLine withFile(CommandLine line, const QByteArray& file)
{
    if (!line.file.isEmpty())
        return wrong("only one FILE can be named");
    line.file = file;
    return line;
}

} // namespace

CommandLine CommandLine::parse(const std::vector<QByteArray>& words)
{
    const auto options = std::find(words.begin(), words.end(), "--");
    for (auto word = words.begin(); word != options; ++word)
        if (*word == "--help" || *word == "--version")
            return {.wish = *word == "--help" ? Wish::Help : Wish::Version};
    CommandLine line;
    for (auto word = words.begin(); word != words.end() && line.wish != Wish::Wrong; ++word) {
        const bool isOption = word < options && word->startsWith('-');
        if (word == options || word->isEmpty())
            continue;
        if (!isOption)
            line = withFile(line, *word);
        else if (*word == "--check-skin" && std::next(word) != words.end())
            line = withFile({.wish = Wish::CheckSkin, .file = line.file}, *++word);
        else if (*word == "--check-skin")
            line = wrong("--check-skin needs a FILE");
        else if (*word == MediaPreparation::kOption)
            line.wish = Wish::PrepareMedia;
        else if (*word == "-session" && std::next(word) != words.end())
            line.session = *++word;
        else
            line = wrong("there is no option " + *word);
    }
    return line;
}
