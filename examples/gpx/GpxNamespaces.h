#pragma once

// The namespaces of a GPX document's extensions, for writers that declare them only on the root.

#include "GpxBindings.h"

namespace Gpx {

// Gives every namespace the document uses, other than GPX's own, a prefix in the context's aliases:
// the document's own prefix for it where it has one, else a new one (ns1, ns2, ...). JSON at
// round-trip level 2 declares namespaces only on the root, so it needs them all there. Returns
// how many namespaces it added.
int DeclareNamespaces(const CXmlDocument& document, CSerializationContext& context);

} // namespace Gpx
