#include "player/face/playerkeys.h"

KeyAction keyAction(QChar typed, const SkinState& skin, bool keysOff)
{
    constexpr char16_t kEscape = 27;
    switch (typed.unicode()) {
    case kEscape:
        return {.kind = KeyAction::HideAids};
    case u'`':
        return {.kind = KeyAction::ShowAreas};
    case u'~':
        return {.kind = KeyAction::FrameButtons};
    default:
        break;
    }
    if (keysOff)
        return {};
    const QString wanted(typed.toUpper());
    for (int number = 1; number <= kKeyButtons; ++number)
        if (skin.buttons[static_cast<std::size_t>(number)].key == wanted)
            return {KeyAction::Command, number};
    return {};
}

QString keyText(const SkinState& skin, Command command)
{
    const int code = codeOf(command);
    const QString& key = skin.buttons[static_cast<std::size_t>(code)].key;
    const KeyAction expected{KeyAction::Command, code};
    if (key.isEmpty() || keyAction(key.front(), skin, false) != expected)
        return {};
    return key == u" " ? QStringLiteral("Space") : key;
}

QString emptyListText(const SkinState& skin)
{
    const QString key = keyText(skin, Command::AddFile);
    return key.isEmpty() ? QStringLiteral("Drop music here")
                         : QStringLiteral("Drop music here or press ") + key;
}
