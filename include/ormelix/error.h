/// \file
/// The failures of the library. Everything it raises derives from ormelix::Error,
/// except range failures of indexed properties, which are std::out_of_range.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

/// \brief Everything of the library: the object model below clsManager, the store
/// (StoreConnection, StoreSession, Recordset) and the failures rooted at Error.
///
/// The names are the domain's, in German and with umlauts (clsMandant, LLohn,
/// clsLänder). See the main page for the object tree and a host's road.
namespace ormelix {

/// The root of every failure the library raises (but std::out_of_range of an
/// indexed property): catch it to catch them all. what() says what failed.
class Error : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The first `limit` characters of a text (an SQL statement, say) for a message,
/// cut at a character boundary and marked "..." where cut, on one line.
std::string ShortenForMessage(std::string_view text, std::size_t limit = 200);

/// A statement, filter, field or file the store could not serve. Subject() is the
/// SQL text, filter text, field name or path that was being worked on (whole);
/// what() names it by its first 200 characters. BackendMessage() is what the
/// backend said (may be empty for our own checks).
class StoreError : public Error {
 public:
  /// A failure described by what_failed, naming subject and the backend's message.
  StoreError(const std::string& what_failed, std::string subject, std::string backend_message = {}, int code = 0);

  /// The SQL text, filter text, field name or path that was being worked on, whole.
  const std::string& Subject() const noexcept { return subject_; }
  /// What the backend said; "" for a failure found by the library itself.
  const std::string& BackendMessage() const noexcept { return backend_message_; }
  /// The backend's error number (SQLite's extended result code), 0 for a failure
  /// found by the library itself.
  int Code() const noexcept { return code_; }

 private:
  std::string subject_;
  std::string backend_message_;
  int code_ = 0;
};

/// A failed lookup in a keyed collection, by key or by position.
class KeyNotFound : public Error {
 public:
  /// A lookup of key (or a position, described) in the named collection failed.
  KeyNotFound(std::string key, const std::string& collection);

  /// The key, or a description of the position, that was not found.
  const std::string& Key() const noexcept { return key_; }

 private:
  std::string key_;
};

/// A value that cannot be turned into the wanted type (say, a text that is no
/// boolean where a boolean is read).
class ConversionError : public Error {
 public:
  using Error::Error;
};

}  // namespace ormelix
