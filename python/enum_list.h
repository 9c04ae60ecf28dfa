// The enumerations of the library that cross to Python, each as an IntEnum (see
// enums.cpp, which makes the classes). A caster per enumeration turns a member
// into its class and takes any whole number of its range back.
#pragma once

#include "ormelix/basevalues/basis_enums.h"
#include "ormelix/career/laufbahn.h"
#include "ormelix/career/laufbahnen.h"
#include "ormelix/children/kind_zeitbezug.h"
#include "ormelix/employee/lohn.h"
#include "ormelix/employee/lohnarten.h"
#include "ormelix/employee/mitarbeiter_list.h"
#include "ormelix/employer/mandant_jahresdaten.h"
#include "ormelix/employer/mandant_pdf_encrypt.h"
#include "ormelix/store/recordset.h"
#include "ormelix/store/schema.h"

ORMELIX_PYTHON_ENUM(eUpdateConstants)
ORMELIX_PYTHON_ENUM(eSortOrderMitarbeiter)
ORMELIX_PYTHON_ENUM(eLohnartenConstants)
ORMELIX_PYTHON_ENUM(eMandantAbrechnungsart)
ORMELIX_PYTHON_ENUM(eVSPasswordOption)
ORMELIX_PYTHON_ENUM(eBasisSWDienstnehmergruppe)
ORMELIX_PYTHON_ENUM(eBasisSAVersicherungsgruppe)
ORMELIX_PYTHON_ENUM(eBasisDGDienstnehmergruppe)
ORMELIX_PYTHON_ENUM(eBasisLehrjahre)
ORMELIX_PYTHON_ENUM(eBasisBundesländer)
ORMELIX_PYTHON_ENUM(eLaufbahnschritte)
ORMELIX_PYTHON_ENUM(eAusgabeLaufbahnen)
ORMELIX_PYTHON_ENUM(eFB_Bezieher)
ORMELIX_PYTHON_ENUM(eFABO)
ORMELIX_PYTHON_ENUM(CursorTypeEnum)
ORMELIX_PYTHON_ENUM(LockTypeEnum)
ORMELIX_PYTHON_ENUM(StoreKind)
