#pragma once

#include "ctl/Change.h"
#include "ctl/Session.h"

// Sends a plan and reads it back. Refuses one with remarks unless `clamp` allows them. Returns the status.
int SendPlan(Session& session, const Plan& plan, bool clamp);
