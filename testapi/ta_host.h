#pragma once

// The host as the test-support library sees it, without windows. No other file of the library includes host
// headers: this is the seam where another host is fitted.

#include "host/app/ca_app.h"
#include "host/app/ca_doc.h"
#include "host/app/ca_doc_manager.h"
#include "host/app/sds_cmd.h"
#include "host/app/sys_vars.h"
#include "host/db/entities/od_db_block_reference.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/od_db_database.h"
#include "host/db/od_db_selection_set.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_symbol_table.h"
#include "host/geom/od_ge_3d.h"
#include "host/root/od_array.h"
#include "host/root/od_error.h"
#include "host/root/od_string.h"
#include "host/sds/ca_resbuf.h"
#include "host/sds/sds.h"
#include "host/sds/sds_names.h"
#include "host/ut/ut_environment.h"
#include "host/ut/ut_file.h"
#include "host/ut/ut_file_name.h"
#include "host/ut/ut_stop_watch.h"
#include "host/ut/ut_text.h"
#include "host/xml/oa_xml.h"
