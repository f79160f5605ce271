#include "player/skin/skininterpreter.h"

#include "base/runtimeerror.h"
#include "player/skin/skinhost.h"
#include "player/skin/skinlines.h"
#include "player/skin/skinreader.h"

namespace {

const QString kUnknownElements = QStringLiteral(
    "Error in skin file!\rThe skin file contains references to the following elements that do not exist!:\r");

constexpr int kUnusedNumbers = 6; // at the end of the header's last line

WindowSizes readSizes(SkinReader& reader, SkinLint& remarks)
{
    WindowSizes sizes;
    for (QSize& size : sizes) {
        const int width = reader.number();
        size = {width, reader.number()};
        remarks.windowSize(reader.line(), size);
    }
    return sizes;
}

class Loading {
public:
    explicit Loading(SkinTarget& target) : m_target(target) { m_target.beginLoad(); }
    ~Loading() { m_target.endLoad(); }
    Loading(const Loading&) = delete;
    Loading& operator=(const Loading&) = delete;

private:
    SkinTarget& m_target;
};

} // namespace

SkinInterpreter::SkinInterpreter(const SkinSeams& seams, SkinDiagnostics* notes)
    : m_seams(seams), m_remarks(notes)
{
}

bool SkinInterpreter::isSkin()
{
    SkinReader& reader = m_seams.reader;
    if (reader.atEnd() || reader.field() != u"Tonedeck Skin")
        return false;
    m_seams.texts.info.clear();
    if (!m_seams.texts.addInfo(reader.restOfLine().trimmed()))
        m_remarks.infoCut(reader.line());
    return true;
}

void SkinInterpreter::load(const QString& directory)
{
    WindowSizes sizes;
    if (!attempt([&] { sizes = readSizes(m_seams.reader, m_remarks); }))
        return;
    const Loading loading(m_seams.target);
    SkinLines lines(m_seams, m_remarks);
    const bool whole = attempt([&] { apply(sizes, directory, lines); });
    m_seams.target.releaseWork();
    if (m_seams.host.closed() || !attempt([this] { m_seams.target.repaint(); }) || !whole)
        return;
    if (lines.faulty())
        m_seams.host.message(kUnknownElements + lines.unknown());
}

void SkinInterpreter::apply(const WindowSizes& sizes, const QString& directory, SkinLines& lines)
{
    const SkinHost& host = m_seams.host;
    const QString pictures = setBitmaps(sizes, directory);
    if (!host.closed())
        setWindow();
    if (!host.closed())
        lines.read(pictures);
    if (!host.closed())
        setOutline(lines, sizes);
}

bool SkinInterpreter::attempt(const std::function<void()>& step)
{
    try {
        step();
        return true;
    } catch (const RunTimeError& error) {
        m_remarks.error(m_seams.reader.line(), error);
        return false;
    }
}

// Returns where the skin's own pictures lie from here on. The sizes come with the pictures: whoever cancels
// the question for them keeps the face as it was.
QString SkinInterpreter::setBitmaps(const WindowSizes& sizes, const QString& directory)
{
    const QString main = m_seams.reader.field();
    const QString resource = m_seams.reader.field();
    QString pictures = main == u"*" ? importDirectory(resource) : directory;
    m_seams.target.setWindowSizes(sizes);
    if (main == u"*")
        return pictures;
    setBitmap(&SkinTarget::setBackground, directory + main, QStringLiteral("Main bitmap"));
    if (!resource.isEmpty())
        setBitmap(&SkinTarget::setResource, directory + resource, QStringLiteral("Resource bitmap"));
    return directory;
}

QString SkinInterpreter::importDirectory(const QString& proposed)
{
    SkinImport import{.directory = proposed, .filter = m_seams.reader.field()};
    import.file = m_seams.reader.field();
    const std::optional<QString> directory = m_seams.host.importDirectory(import);
    if (!directory)
        throw RunTimeError(ErrorNumber::CancelSelected);
    return *directory;
}

void SkinInterpreter::setBitmap(bool (SkinTarget::*set)(const QString&), const QString& path,
                                const QString& what)
{
    if ((m_seams.target.*set)(path))
        return;
    m_remarks.missing(m_seams.reader.line(), what, path);
    m_seams.host.message(what + QStringLiteral(" not found: ") + path);
}

void SkinInterpreter::setWindow()
{
    SkinReader& reader = m_seams.reader;
    m_seams.host.chosen();
    m_seams.target.reset();
    const int hoverStyle = reader.number();
    const int position = reader.number();
    for (int i = 0; i < kUnusedNumbers; ++i)
        reader.number();
    m_remarks.window(reader.line(), hoverStyle, position);
    m_seams.target.setHoverStyle(hoverStyle);
    m_seams.target.placeWindow(position);
}

// It is that of the set of pictures where the skin has none of its own.
void SkinInterpreter::setOutline(const SkinLines& lines, const WindowSizes& sizes)
{
    const OutlinePoints& points = lines.outline();
    m_remarks.outline(m_seams.reader.line(), points);
    SkinOutline outline = points.outline();
    if (const SetHint& hint = lines.outlineHint(); points.declared() == 0 && !hint.text.isEmpty()) {
        outline = outlineOfSet(hint.text, sizes);
        if (outline.empty())
            m_remarks.unusableHint(hint.line, hint.path);
    }
    if (!outline.empty())
        m_seams.target.setOutline(outline);
}
