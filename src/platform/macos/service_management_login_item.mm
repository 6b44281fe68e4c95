// SPDX-License-Identifier: MIT
#include "platform/macos/service_management_login_item.h"

#include "platform/macos/foundation.h"

#import <ServiceManagement/ServiceManagement.h>

namespace chimewell {

bool ServiceManagementLoginItem::isEnabled() const
{
    return SMAppService.mainAppService.status == SMAppServiceStatusEnabled;
}

std::expected<void, Phrase> ServiceManagementLoginItem::registerItem()
{
    NSError* error = nil;
    if ([SMAppService.mainAppService registerAndReturnError:&error]) return {};
    return std::unexpected(utf8(error.localizedDescription));
}

std::expected<void, Phrase> ServiceManagementLoginItem::unregisterItem()
{
    NSError* error = nil;
    if ([SMAppService.mainAppService unregisterAndReturnError:&error]) return {};
    return std::unexpected(utf8(error.localizedDescription));
}

}
