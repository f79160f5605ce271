#include "skin/skininterpreter.h"

#include "base/runtimeerror.h"
#include "skin/skinhost.h"
#include "skin/skinlines.h"
#include "skin/skinreader.h"
#include "skin/skintarget.h"

namespace {

const QString kUnknownElements = QStringLiteral(
    "Error in skin file!\rThe skin file contains references to the following elements that do not exist!:\r");

constexpr int kUnusedNumbers = 6; // at the end of the header's last line

WindowSizes readSizes(SkinReader& reader)
{
    WindowSizes sizes;
    for (QSize& size : sizes) {
        const int width = reader.number();
        size = {width, reader.number()};
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

SkinInterpreter::SkinInterpreter(const Places& places, SkinNotes* notes) : m_places(places), m_remarks(notes)
{
}

bool SkinInterpreter::isSkin()
{
    SkinReader& reader = m_places.reader;
    if (reader.atEnd() || reader.field() != u"Tonedeck Skin")
        return false;
    m_places.texts.info.clear();
    if (!m_places.texts.addInfo(reader.restOfLine().trimmed()))
        m_remarks.infoCut(reader.line());
    return true;
}

void SkinInterpreter::load(const QString& directory)
{
    const auto& [reader, target, host, texts] = m_places;
    WindowSizes sizes;
    if (!attempt([&, &file = reader] { sizes = readSizes(file); }))
        return;
    const Loading loading(target);
    std::optional<SkinLines> lines;
    const bool whole = attempt([&] {
        target.setWindowSizes(sizes);
        lines.emplace(SkinLines::Places{reader, target, host, texts}, m_remarks, setBitmaps(directory));
        if (!host.closed())
            setWindow();
        if (!host.closed())
            lines->read();
        if (!host.closed())
            setOutline(lines->outline());
    });
    target.releaseWork();
    if (host.closed() || !attempt([&] { target.repaint(); }) || !whole)
        return;
    if (lines->faulty())
        host.message(kUnknownElements + lines->unknown());
}

bool SkinInterpreter::attempt(const std::function<void()>& step)
{
    try {
        step();
        return true;
    } catch (const RunTimeError& error) {
        m_remarks.error(m_places.reader.line(), error);
        return false;
    }
}

// Where the skin's own pictures lie from here on.
QString SkinInterpreter::setBitmaps(const QString& directory)
{
    const QString main = m_places.reader.field();
    const QString resource = m_places.reader.field();
    if (main == u"*")
        return importDirectory(resource);
    setBitmap(&SkinTarget::setBackground, directory + main, QStringLiteral("Main bitmap"));
    if (!resource.isEmpty())
        setBitmap(&SkinTarget::setResource, directory + resource, QStringLiteral("Resource bitmap"));
    return directory;
}

QString SkinInterpreter::importDirectory(const QString& proposed)
{
    SkinImport import{.directory = proposed, .filter = m_places.reader.field()};
    import.file = m_places.reader.field();
    const std::optional<QString> directory = m_places.host.importDirectory(import);
    if (!directory)
        throw RunTimeError(ErrorNumber::CancelSelected);
    return *directory;
}

void SkinInterpreter::setBitmap(bool (SkinTarget::*set)(const QString&), const QString& path,
                                const QString& what)
{
    if ((m_places.target.*set)(path))
        return;
    m_remarks.missing(m_places.reader.line(), what, path);
    m_places.host.message(what + QStringLiteral(" not found: ") + path);
}

void SkinInterpreter::setWindow()
{
    SkinReader& reader = m_places.reader;
    m_places.host.chosen();
    m_places.target.reset();
    const int hoverStyle = reader.number();
    const int position = reader.number();
    for (int i = 0; i < kUnusedNumbers; ++i)
        reader.number();
    m_remarks.window(reader.line(), hoverStyle, position);
    m_places.target.setHoverStyle(hoverStyle);
    m_places.target.placeWindow(position);
}

void SkinInterpreter::setOutline(const OutlinePoints& points)
{
    m_remarks.outline(m_places.reader.line(), points);
    const SkinOutline outline = points.outline();
    if (!outline.empty())
        m_places.target.setOutline(outline);
}
