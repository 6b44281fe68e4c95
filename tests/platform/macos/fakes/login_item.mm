// SPDX-License-Identifier: MIT
#include "fakes/login_item.h"

#include "fakes/per_test.h"
#include "fakes/text.h"
#include "fakes/values.h"

#import <ServiceManagement/ServiceManagement.h>

using namespace chimewell::test::mac;

namespace {

struct Shared {
    LoginItemRecord record;
    SMAppService* mainApplication = [[SMAppService alloc] init];
};

PerTest<Shared> shared;

/// Writes the error only where the caller gave room for it, as every such method does.
BOOL change(const char* what, SMAppServiceStatus status, NSError* __autoreleasing* error)
{
    shared->record.asked.emplace_back(what);
    if (!shared->record.refusal) {
        shared->record.status = status;
        return YES;
    }
    if (error) *error = [NSError errorWithDescription:text(*shared->record.refusal)];
    return NO;
}

}

@implementation SMAppService

+ (SMAppService*)mainAppService
{
    return shared->mainApplication;
}

- (SMAppServiceStatus)status
{
    return static_cast<SMAppServiceStatus>(shared->record.status);
}

- (BOOL)registerAndReturnError:(NSError**)error
{
    return change("register", SMAppServiceStatusEnabled, error);
}

- (BOOL)unregisterAndReturnError:(NSError**)error
{
    return change("unregister", SMAppServiceStatusNotRegistered, error);
}

@end

namespace chimewell::test::mac {

LoginItemRecord& loginItem()
{
    return shared->record;
}

}
