/// \file
/// modBasiswerte: the table routines of the base values. Every routine takes the
/// session first and reaches the payroll store through its AktDB (an Error when
/// none is set); a failure of the store unwinds to the caller, and as nothing runs
/// in a transaction, what was written before it stays.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ormelix/basevalues/basis.h"
#include "ormelix/basevalues/basisordner.h"
#include "ormelix/collection.h"
#include "ormelix/session/manager.h"

/// \brief The table routines of the base values (Basiswerte, Basiswerte_Zeittabelle
/// and the sub-tables of a dated table), and their column declarations.
///
/// Every routine takes the session first and reaches the payroll store through its
/// AktDB (an Error when none is set); a failure of the store unwinds to the caller.
namespace ormelix::modBasiswerte {

// ---- folders (Basiswerte)

/// Fills the folder from its row; no row leaves it as it stands.
void LoadBasisordner(clsManager& pManager, clsBasisordner& pBasisordner, const std::string& pID);
/// Inserts or updates the folder's row and sets the folder's ID.
void SaveBasisordner(clsManager& pManager, clsBasisordner& pBasisordner);
/// Deletes the row of an ID (nothing for a text that is no ID); true when a row went.
bool DeleteBasisordner(clsManager& pManager, const std::string& pID);
/// A new folder with copies of every table of the source, or nullptr when the
/// source is not in the store. An empty name keeps the source's name.
std::shared_ptr<clsBasisordner> CopyBasisordner(clsManager& pManager, const std::string& pSourceID,
                                                const std::string& pBezeichnung);
/// Loads the folder's tables and puts it at its sorted place in the list; a folder
/// without a neighbour in the store is left out, on purpose.
void InsertBasisordnerSorted(clsManager& pManager, Collection<clsBasisordner>& pCollection,
                             const std::shared_ptr<clsBasisordner>& pBasisordner);

// ---- dated tables (Basiswerte_Zeittabelle)

/// Fills the table and its eight sub-objects; no row leaves it as it stands.
void LoadZeittabelle(clsManager& pManager, LBasis& pBasis, const std::string& pID, const std::string& pBasisID);
/// Inserts or updates the row (a new row takes pBasisID), then all eight sub-objects.
void SaveZeittabelle(clsManager& pManager, LBasis& pBasis, const std::string& pBasisID);
/// A new saved table in folder pBasisID with every value of the source, or nullptr
/// when the source is not in the store. An empty name keeps the source's name.
std::shared_ptr<LBasis> CopyZeittabelle(clsManager& pManager, const std::string& pSourceID,
                                        const std::string& pBasisID, std::int32_t pZeitraum,
                                        const std::string& pBezeichnung);
/// Deletes the row of an ID (the sub-tables go by cascade).
void DeleteZeittabelle(clsManager& pManager, const std::string& pID);
/// Puts the table at its place by period; one without a neighbour in the store is
/// left out, on purpose.
void InsertZeittabelleSorted(clsManager& pManager, Collection<LBasis>& pCollection,
                             const std::shared_ptr<LBasis>& pBasis, const std::string& pBasisID);

// ---- the eight sub-objects, each under the ID of its dated table

/// \name Sub-objects of a dated table
///@{

/// Reads or writes a sub-object of a dated table.
///
/// Load...: reads the sub-object's rows of the dated table pZeittabellenID (a
/// table without a row leaves the object as it stands). Save...: writes them,
/// inserting the rows a table lacks. SW: Basiswerte_Zeittabelle_SW and _SW_Werte;
/// LST: Basiswerte_Zeittabelle_LST; SA: _SA and _SA_Werte; PP: _PP; FB: _FB;
/// ALV: _ALV; DG: _DG and _DG_Werte.
void LoadBasisSW(clsManager& pManager, LBasis_SW& pSW, const std::string& pZeittabellenID);
void SaveBasisSW(clsManager& pManager, LBasis_SW& pSW, const std::string& pZeittabellenID);
void LoadBasisLST(clsManager& pManager, LBasis_LST& pLST, const std::string& pZeittabellenID);
void SaveBasisLST(clsManager& pManager, LBasis_LST& pLST, const std::string& pZeittabellenID);
///@}
/// \name Wage-tax bands
///@{

/// The bands of an LST row (Basiswerte_Zeittabelle_LST_Werte).
///
/// The bands of an LST row (Basiswerte_Zeittabelle_LST_Werte): appended on load,
/// deleted and rewritten on save.
void LoadBasisLSTWerte(clsManager& pManager, LBasis_LST& pLST, const std::string& pLohnsteuerID);
void SaveBasisLSTWerte(clsManager& pManager, LBasis_LST& pLST, const std::string& pLohnsteuerID);
///@}
/// \name Sub-objects of a dated table, continued
///@{

/// As LoadBasisSW and SaveBasisSW, for SA, PP, FB, ALV and DG.
void LoadBasisSA(clsManager& pManager, LBasis_SA& pSA, const std::string& pZeittabellenID);
void SaveBasisSA(clsManager& pManager, LBasis_SA& pSA, const std::string& pZeittabellenID);
void LoadBasisPP(clsManager& pManager, LBasis_PP& pPP, const std::string& pZeittabellenID);
void SaveBasisPP(clsManager& pManager, LBasis_PP& pPP, const std::string& pZeittabellenID);
void LoadBasisFB(clsManager& pManager, LBasis_FB& pFB, const std::string& pZeittabellenID);
void SaveBasisFB(clsManager& pManager, LBasis_FB& pFB, const std::string& pZeittabellenID);
void LoadBasisALV(clsManager& pManager, LBasis_ALV& pALV, const std::string& pZeittabellenID);
void SaveBasisALV(clsManager& pManager, LBasis_ALV& pALV, const std::string& pZeittabellenID);
void LoadBasisDG(clsManager& pManager, LBasis_DG& pDG, const std::string& pZeittabellenID);
void SaveBasisDG(clsManager& pManager, LBasis_DG& pDG, const std::string& pZeittabellenID);
///@}
/// \name Marginal employment
///@{

/// Basiswerte_Zeittabelle_DG_Geringfügig and _DG_Geringfügig_Werte. The
/// marginal-employment row also carries SA.GrenzbetragGeringBeschaeftigte.
void LoadBasisDGM(clsManager& pManager, LBasis_DG_GF& pDGM, LBasis_SA& pSA, const std::string& pZeittabellenID);
void SaveBasisDGM(clsManager& pManager, LBasis_DG_GF& pDGM, LBasis_SA& pSA, const std::string& pZeittabellenID);
///@}

}  // namespace ormelix::modBasiswerte
