#pragma once

// The whole creator catalogue; hosts include this one header.
#include "chartcreators.h"
#include "datacreators.h"
#include "generalcreator.h"
#include "maintenancecreators.h"
#include "tablecreators.h"
#include "toolcreators.h"
