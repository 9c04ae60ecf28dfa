/// \file
/// The schema of the two stores: the payroll store (employers, base values,
/// employees) and the reference store (catalogues). It ships with the library as a
/// neutral table list, from which the DDL of each backend is made.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ormelix/store/store.h"

namespace ormelix {

/// Which of the two stores: the payroll store (AktDB: employers, base values,
/// employees) or the reference store (ImportDB: the catalogues Gemeinden,
/// BMVG_Kassen, DM_Austrittsgründe, Länder, Länder_Indikatoren).
enum class StoreKind {
  Payroll,   ///< the payroll store
  Reference  ///< the reference store
};

/// A column of a table of the schema.
struct SchemaColumn {
  std::string name;  ///< the column's name, umlauts included
  std::string type;       ///< text, bool, int16, int32, double, date, any
  std::string default_value;  ///< "" for none (Null)
  std::string references;     ///< the table whose ID this column refers to, or ""
  bool cascade = false;       ///< deleted with the referenced row
  bool primary = false;       ///< the key of a table without ID and Nr
};

/// An index of a table of the schema.
struct SchemaIndex {
  std::vector<std::string> columns;  ///< its columns, in order
  bool unique = false;  ///< one row per key: the store refuses a second
};

/// A table of the schema (schema/payroll.tables, schema/reference.tables).
struct SchemaTable {
  std::string name;  ///< the table's name
  bool keyed = true;  ///< has the store-filled ID and the autonumber Nr
  std::vector<SchemaColumn> columns;  ///< its columns, without ID and Nr
  std::vector<SchemaIndex> indexes;  ///< named `ix_<table>_<position from 1>`
};

/// The tables of a store as the schema declares them (without ID and Nr).
const std::vector<SchemaTable>& SchemaTables(StoreKind kind);
/// The name of a table's index in the DDL (position counts from 1).
std::string SchemaIndexName(const SchemaTable& table, std::size_t position);
/// Its CREATE [UNIQUE] INDEX statement, the same for both dialects.
std::string SchemaIndexDdl(const SchemaTable& table, std::size_t position);
/// The DDL of a store for "sqlite" or "postgresql".
std::string SchemaDdl(StoreKind kind, std::string_view dialect = "sqlite");
/// Creates a new store at path and opens it; connect selects the backend as in
/// StoreConnection::Open. A file that exists already is a StoreError and stays
/// untouched; a store that fails half-way is removed again.
StoreConnectionPtr CreateStore(const std::string& path, StoreKind kind, const std::string& connect = "");

}  // namespace ormelix
