#pragma once

// kvdao: the data-access library for sample lists, generic batches, quantify
// methods and logs. This header brings in every public class.

#include "kvdao/version.h"

#include "kvdao/platform/access_db.h"
#include "kvdao/platform/archive.h"
#include "kvdao/platform/atomic_file.h"
#include "kvdao/platform/code_page.h"
#include "kvdao/platform/dao_types.h"
#include "kvdao/platform/environment.h"
#include "kvdao/platform/exceptions.h"
#include "kvdao/platform/message.h"
#include "kvdao/platform/path.h"
#include "kvdao/platform/profile.h"
#include "kvdao/platform/record_database.h"
#include "kvdao/platform/stdio_file.h"
#include "kvdao/platform/text.h"
#include "kvdao/platform/variant.h"
#include "kvdao/platform/word_match.h"
#include "kvdao/platform/xml_builder.h"

#include "kvdao/jet/jet.h"

#include "kvdao/samplelist/batch_sample_record.h"
#include "kvdao/samplelist/kv_variant.h"
#include "kvdao/samplelist/sample_db_record.h"
#include "kvdao/samplelist/sample_list.h"
#include "kvdao/samplelist/sample_list_mem.h"
#include "kvdao/samplelist/sample_list_row.h"
#include "kvdao/samplelist/sample_record.h"
#include "kvdao/samplelist/sample_record_attributes.h"
#include "kvdao/samplelist/schema.h"

#include "kvdao/samplefile/db3_file.h"
#include "kvdao/samplefile/db3_record.h"
#include "kvdao/genericbatch/dim1_data.h"
#include "kvdao/genericbatch/generic_batch.h"
#include "kvdao/genericbatch/generic_file.h"
#include "kvdao/genericbatch/generic_plate.h"
#include "kvdao/genericbatch/generic_sample.h"

#include "kvdao/method/internal_method.h"
#include "kvdao/method/mass_string_comparitor.h"
#include "kvdao/method/method_data_fields.h"
#include "kvdao/method/method_record.h"
#include "kvdao/method/record.h"
#include "kvdao/method/record_array.h"
#include "kvdao/method/record_manager.h"

#include "kvdao/support/external_program.h"
