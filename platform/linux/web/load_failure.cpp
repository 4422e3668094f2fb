#include "platform/linux/web/load_failure.h"

#include <webkit2/webkit2.h>

#include "platform/linux/glib/owner.h"

namespace corvane::desktop {
namespace {

using Kind = LoadFailure::Kind;

struct Row {
  GQuark domain;
  int code;
  Kind kind;
};

constexpr int kAny = -1;

Kind KindOf(const GError& error) {
  const Row rows[] = {
      {G_RESOLVER_ERROR, kAny, Kind::NoHost},
      {G_IO_ERROR, G_IO_ERROR_HOST_NOT_FOUND, Kind::NoHost},
      {G_IO_ERROR, G_IO_ERROR_CONNECTION_REFUSED, Kind::Refused},
      {G_IO_ERROR, G_IO_ERROR_TIMED_OUT, Kind::TimedOut},
      {G_IO_ERROR, G_IO_ERROR_HOST_UNREACHABLE, Kind::NoConnection},
      {G_IO_ERROR, G_IO_ERROR_NETWORK_UNREACHABLE, Kind::NoConnection},
      {G_IO_ERROR, G_IO_ERROR_CONNECTION_CLOSED, Kind::NoConnection},
      {G_IO_ERROR, G_IO_ERROR_NOT_FOUND, Kind::NoFile},
      {G_IO_ERROR, G_IO_ERROR_PERMISSION_DENIED, Kind::ForbiddenFile},
      {G_IO_ERROR, G_IO_ERROR_CANCELLED, Kind::GivenUp},
      {G_TLS_ERROR, kAny, Kind::NotSecure},
      {WEBKIT_NETWORK_ERROR, WEBKIT_NETWORK_ERROR_FILE_DOES_NOT_EXIST, Kind::NoFile},
      {WEBKIT_NETWORK_ERROR, WEBKIT_NETWORK_ERROR_UNKNOWN_PROTOCOL, Kind::NotShown},
      {WEBKIT_POLICY_ERROR, WEBKIT_POLICY_ERROR_CANNOT_USE_RESTRICTED_PORT, Kind::ForbiddenPort},
      {WEBKIT_POLICY_ERROR, kAny, Kind::NotShown},
  };
  for (const Row& row : rows) {
    if (row.domain == error.domain && (row.code == kAny || row.code == error.code)) return row.kind;
  }
  return Kind::Other;
}

}  // namespace

LoadFailure FailureOf(const GError& error) { return {KindOf(error), Text(error.message)}; }

CertificateFault FaultOf(GTlsCertificateFlags faults) {
  if ((faults & G_TLS_CERTIFICATE_UNKNOWN_CA) != 0) return CertificateFault::Issuer;
  if ((faults & G_TLS_CERTIFICATE_BAD_IDENTITY) != 0) return CertificateFault::Site;
  if ((faults & G_TLS_CERTIFICATE_EXPIRED) != 0) return CertificateFault::Expired;
  if ((faults & G_TLS_CERTIFICATE_NOT_ACTIVATED) != 0) return CertificateFault::NotYetValid;
  if ((faults & G_TLS_CERTIFICATE_REVOKED) != 0) return CertificateFault::Withdrawn;
  return CertificateFault::Unknown;
}

}  // namespace corvane::desktop
