// LLohn_PDFEncrypt: the password of an employee's PDF documents, a row of
// Mitarbeiter_PDFEncrypt.
//
// An empty shell so far: the employee object owns one, and the load and save of the
// table stand at their place in LoadMitarbeiter, Update and Refresh; the password
// and its transformation come with the document-protection work.
#pragma once

namespace ormelix {

class LLohn_PDFEncrypt {};

}  // namespace ormelix
