// Library-internal: the rows of Mitarbeiter_Laufbahn read into career steps, with
// their exit reasons looked up in the catalogue DM_Austrittsgründe.
#pragma once

#include <string>
#include <vector>

#include "ormelix/career/laufbahn.h"
#include "ormelix/store/recordset.h"

namespace ormelix::detail {

class LaufbahnRowReader {
 public:
  // rows: "SELECT * FROM [Mitarbeiter_Laufbahn] ..."; reasons: "SELECT * FROM
  // [DM_Austrittsgründe]", or null when there is no catalogue to ask.
  LaufbahnRowReader(const Recordset& rows, Recordset* reasons);

  // Fills the step from the current row. A value that cannot be read (a Datum that
  // is Null or no date, a text in a numeric column) is a StoreError naming the
  // table, the column and the row's ID.
  void Read(LLohn_Laufbahn& step) const;

 private:
  void ReadReason(LLohn_Laufbahn& step) const;

  const Recordset& rows_;
  Recordset* reasons_;
  int id_, schritt_, datum_, grund_;
  std::vector<int> bound_;
  int code_ = -1, kuerzel_ = -1, text_ = -1;
};

}  // namespace ormelix::detail
