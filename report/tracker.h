#pragma once

// The tracker base, its handles and every concrete tracker; hosts include this one header.
#include "trackerbase.h"
#include "trackerhandle.h"
#include "graphicsdiamonditem.h"
#include "recttracker.h"
#include "tabletracker.h"
#include "transformtracker.h"
#include "linetracker.h"
#include "texttracker.h"
