#include "platform/quickstyle.h"

QIcon QuickStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const
{
    return icon == SP_ToolBarHorizontalExtensionButton ? QIcon()
                                                       : QProxyStyle::standardIcon(icon, option, widget);
}
