#include "system/mpris/mpris.h"

#include "system/mpris/mprisbus.h"
#include "system/mpris/mprisinterfaces.h"
#include "system/mpris/mprisobject.h"

namespace {

// These are children of the object and there before the bus shows it.
MprisObject& withInterfaces(MprisObject& object)
{
    new MprisApplication(object);
    new MprisPlayer(object);
    return object;
}

class MprisControls : public DesktopControls {
public:
    explicit MprisControls(ControlledPlayer& player)
        : m_object(player), m_bus(withInterfaces(m_object), [this] { m_object.takeChanges(); })
    {
    }

    void refresh() override
    {
        if (!m_bus.shows())
            return;
        if (const QVariantMap changes = m_object.takeChanges(); !changes.isEmpty())
            m_bus.tellChanges(changes);
    }
    void jumped(qint32 position) override { m_object.tellJump(position); }

private:
    MprisObject m_object;
    MprisBus m_bus;
};

} // namespace

std::unique_ptr<DesktopControls> makeMprisControls(ControlledPlayer& player)
{
    return std::make_unique<MprisControls>(player);
}
