#pragma once

// The tracker base, its handles and every concrete tracker; hosts include this one header.
#include "graphicsdiamonditem.h"
#include "linetracker.h"
#include "recttracker.h"
#include "tabletracker.h"
#include "texttracker.h"
#include "trackerbase.h"
#include "trackerhandle.h"
#include "transformtracker.h"
