#include "web/Policy.h"

#include "web/DocumentProblem.h"
#include "web/address/Address.h"
#include "web/address/OwnAddress.h"

namespace corvane {
namespace {

bool IsFile(const std::string& address) { return address.starts_with("file:"); }

/// Whether the program itself has asked for it.
bool IsAskedFor(const std::string& address, const std::string& requested) {
  if (IsDocumentPage(address)) return address == requested;
  // The engine writes addresses in its own way, so only their kind is compared.
  return (IsOwnPage(address) && IsOwnPage(requested)) || (IsFile(address) && IsFile(requested));
}

/// Whether that is a place in the document that is shown.
bool IsWithin(const std::string& address, const std::string& document) {
  return !document.empty() && WithoutPlace(address) == WithoutPlace(document);
}

bool MayLead(const LoadWish& wish, const PolicyContext& context) {
  const std::string& address = wish.address;
  if (!IsFile(address) && !IsOwnPage(address)) return true;
  if (wish.redirect) return false;
  const bool from_own = IsOwnPage(context.present) && !IsDocumentPage(address);
  const bool from_here = from_own || (IsFile(context.present) && IsFile(address)) ||
                         IsWithin(address, context.document);
  return wish.way != LoadWish::Way::Ahead || from_here || IsAskedFor(address, context.requested);
}

}  // namespace

Verdict Judge(const LoadWish& wish, const PolicyContext& context) {
  if (IsOutside(wish.address)) {
    return {Verdict::Kind::Outside, wish.address, false, wish.user_gesture};
  }
  return {MayLead(wish, context) ? Verdict::Kind::Use : Verdict::Kind::Ignore, wish.address,
          wish.way == LoadWish::Way::History, wish.user_gesture};
}

Verdict JudgeNewWindow(const LoadWish& wish, const PolicyContext& context) {
  if (IsOutside(wish.address)) {
    return {Verdict::Kind::Outside, wish.address, false, wish.user_gesture};
  }
  const bool allowed =
      !IsOwnPage(wish.address) && (!IsFile(wish.address) || IsFile(context.present));
  return {allowed ? Verdict::Kind::Use : Verdict::Kind::Ignore, wish.address, false,
          wish.user_gesture};
}

Verdict Judge(const LoadAnswer& answer) {
  // The engine draws documents, and their words are nowhere to be read.
  const bool is_document = IsDocumentKind(answer.mime_type);
  if (answer.can_be_shown && !is_document && !answer.to_be_saved) {
    return {Verdict::Kind::Use, answer.address};
  }
  if (is_document && answer.is_page && !answer.to_be_saved) {
    return {Verdict::Kind::Document, answer.address};
  }
  // A picture of an unknown kind inside a page is nobody's download.
  return {answer.is_page || answer.to_be_saved ? Verdict::Kind::Download : Verdict::Kind::Ignore,
          answer.address};
}

}  // namespace corvane
