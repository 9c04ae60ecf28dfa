// Library-internal: the one way of loading and the one way of saving that the
// employer's side records share (bank, tax office, municipal office, provision
// fund, year data, document protection).
//
// Load: the record's statement with the employer's key; no row leaves the record
// as it stands. Save: a record with a key looks for its own row, and one without a
// key selects the whole table, so that a row is added only to an empty table and
// otherwise the first row the store gives is overwritten, whichever employer it
// belongs to. That is how these records have always behaved, and hosts rely on it.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "ormelix/store/columns.h"
#include "ormelix/store/recordset.h"
#include "ormelix/store/store.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix {

class clsMandant;

namespace detail {

// Opens a load statement forward-only and read-only. Gives the recordset standing
// on its first row, or nullptr (with nothing left open) when there is no pay store
// or no row.
std::unique_ptr<Recordset> OpenSideRecord(const StoreConnectionPtr& db, const std::string& sql);

// The checks of a save, in order: an employer is given; the record or the employer
// has a key; the pay store is set. Gives the employer's key, or nothing when the
// record is not to be saved.
std::optional<std::string> SideRecordEmployerKey(const StoreConnectionPtr& db, const std::string& own_id,
                                                 const clsMandant* pMandant);

// The statement of a save: the base and, for a record with a key, " WHERE [ID]="
// and the key as it stands.
std::string SideRecordSaveSql(const std::string& base, const std::string& own_id);

// Opens a save statement dynamic and optimistic; when it finds no row, starts a
// new one and writes MandantenID. `added` tells which happened.
std::unique_ptr<Recordset> OpenSideRecordForSave(const StoreConnectionPtr& db, const std::string& sql,
                                                 const std::string& employer_key, bool* added = nullptr);

// Stores the row, closes, and gives the key of the row written (GetNewRowID), for
// a changed row as for a new one.
std::string StoreSideRecord(Recordset& recordset);

// The whole load of a record with a key `ID` and declared columns: the statement
// followed by SqlID(pID); at a row, ID by ToText, the columns, then `after` with
// the row still current.
template <class Record>
bool LoadSideRecord(const StoreConnectionPtr& db, const std::string& statement, const std::string& pID,
                    Record& record, const ColumnSet<Record>& columns,
                    const std::function<void(const Recordset&)>& after = {}) {
  auto rs = OpenSideRecord(db, statement + ValueHelpers::SqlID(pID));
  if (!rs) return false;
  record.ID = ValueHelpers::ToText(rs->Fields("ID"));
  columns.Load(record, *rs);
  if (after) after(*rs);
  rs->Close();
  return true;
}

// The whole save of such a record for the employer pMandant: the checks, the
// statement (`base` and the record's own key), the columns, then `after` before
// the row is stored; ID becomes the key of the row written. One write transaction.
template <class Record>
bool SaveSideRecord(const StoreConnectionPtr& db, const std::string& base, Record& record,
                    const ColumnSet<Record>& columns, const clsMandant* pMandant,
                    const std::function<void(Recordset&)>& after = {}) {
  auto employer = SideRecordEmployerKey(db, record.ID, pMandant);
  if (!employer) return false;
  StoreWriteTransaction save(db->Session(), StoreWriteTransaction::KeepWritten);
  auto rs = OpenSideRecordForSave(db, SideRecordSaveSql(base, record.ID), *employer);
  columns.Save(record, *rs);
  if (after) after(*rs);
  record.ID = StoreSideRecord(*rs);
  save.Commit();
  return true;
}

}  // namespace detail
}  // namespace ormelix
