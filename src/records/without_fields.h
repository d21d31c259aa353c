// Included before records.def where only the records' names matter: their fields are passed over.
// No include guard: the list undefines what is defined here.
#define RECORD_END(name)
#define FIELD(type, name, help)
#define ENUMERATION_FIELD(enumeration, name, help)
#define RECORD_FIELD(record, name, help)
#define RECORD_TABLE_FIELD(record, name, count, help)
#define ARRAY_FIELD(type, name, help)
#define RECORD_ARRAY_FIELD(record, name, help)
