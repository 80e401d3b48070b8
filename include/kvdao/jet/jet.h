#pragma once

// The Jet database engine, read side: every public header of the jet area.

#include "kvdao/jet/dao_exception.h"
#include "kvdao/jet/database.h"
#include "kvdao/jet/field.h"
#include "kvdao/jet/field_value.h"
#include "kvdao/jet/index.h"
#include "kvdao/jet/recordset.h"
#include "kvdao/jet/tabledef.h"
#include "kvdao/jet/workspace.h"
