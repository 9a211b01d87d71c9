// A field of several parts that a form keeps as one value.
// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonValue>

namespace orvo::desktop {

class KeptParts {
public:
    virtual ~KeptParts() = default;

    // What the user has changed, and the way back.
    virtual QJsonValue Kept() const = 0;
    virtual void ShowKept(const QJsonValue& kept) = 0;
};

}  // namespace orvo::desktop
