#pragma once

#include <memory>
#include <string>

#include "ormelix/basevalues/basis_alv.h"
#include "ormelix/basevalues/basis_dg.h"
#include "ormelix/basevalues/basis_dg_gf.h"
#include "ormelix/basevalues/basis_fb.h"
#include "ormelix/basevalues/basis_lst.h"
#include "ormelix/basevalues/basis_pp.h"
#include "ormelix/basevalues/basis_sa.h"
#include "ormelix/basevalues/basis_sw.h"
#include "ormelix/session/manager.h"
#include "ormelix/session/zeitraum.h"

namespace ormelix {

/// One dated table of a base-value folder, a row of Basiswerte_Zeittabelle.
/// It holds a complete set of statutory values, valid from its period until the
/// next table of the folder begins, in eight sub-objects. Tables do not inherit
/// from each other: what is not set in a table is zero.
///
/// Its row of Basiswerte_Zeittabelle holds Datum (the start period) and
/// Bezeichnung; each sub-object has tables of its own below it (see SW, LST, SA,
/// PP, FB, DG, DGM, ALV), with cascading deletes.
class LBasis {
 public:
  /// A blank table with its eight sub-objects, not saved.
  LBasis();

  /// The key in the form SqlID gives; "" until saved.
  const std::string& ID() const { return id_; }
  /// The start period (column Datum, a yyyymm key, not a date). The object stays;
  /// its Item may be changed, which moves the table in the store at Update.
  const std::shared_ptr<clsZeitraum>& Zeitraum() const { return zeitraum_; }
  /// The first day of the start period.
  Date Datum_Von() const;
  std::string Bezeichnung;  ///< the table's name (column Bezeichnung)

  /// \name The eight sub-objects
  ///@{

  /// The sub-objects, created with the table and never replaced.
  ///
  /// The sub-objects, created with the table and never replaced: wage-group rates
  /// (SW), wage-tax bands (LST), contribution rates (SA), commuter allowances (PP),
  /// allowances and deductions (FB), employer contributions (DG), marginal
  /// employment (DGM) and unemployment-insurance bounds (ALV).
  const std::shared_ptr<LBasis_SW>& SW() const { return sw_; }
  const std::shared_ptr<LBasis_LST>& LST() const { return lst_; }
  const std::shared_ptr<LBasis_SA>& SA() const { return sa_; }
  const std::shared_ptr<LBasis_PP>& PP() const { return pp_; }
  const std::shared_ptr<LBasis_FB>& FB() const { return fb_; }
  const std::shared_ptr<LBasis_DG>& DG() const { return dg_; }
  const std::shared_ptr<LBasis_DG_GF>& DGM() const { return dgm_; }
  const std::shared_ptr<LBasis_ALV>& ALV() const { return alv_; }
  ///@}

  /// Writes the table row and all eight sub-objects, under the table's own folder:
  /// Basiswerte_Zeittabelle and its sub-tables.
  void Update();
  /// Reads the row and all eight sub-objects again; what was not saved is lost.
  /// Reads Basiswerte_Zeittabelle and its sub-tables.
  /// The wage-tax bands are appended to those in memory (call LST()->Clear() first).
  void Refresh();

  /// \cond INTERNAL
  // Library-internal: key, folder and session, as the table routines set them.
  void SetID(std::string pID) { id_ = std::move(pID); }
  const std::string& BasisID() const { return basis_id_; }
  void SetBasisID(std::string pBasisID) { basis_id_ = std::move(pBasisID); }
  void SetManager(const std::shared_ptr<clsManager>& pManager) { manager_.Set(pManager); }
  /// \endcond

 private:
  std::string id_;
  std::string basis_id_;
  ManagerRef manager_;
  std::shared_ptr<clsZeitraum> zeitraum_;
  std::shared_ptr<LBasis_SW> sw_;
  std::shared_ptr<LBasis_LST> lst_;
  std::shared_ptr<LBasis_SA> sa_;
  std::shared_ptr<LBasis_PP> pp_;
  std::shared_ptr<LBasis_FB> fb_;
  std::shared_ptr<LBasis_DG> dg_;
  std::shared_ptr<LBasis_DG_GF> dgm_;
  std::shared_ptr<LBasis_ALV> alv_;
};

}  // namespace ormelix
