#pragma once

#include <QString>

namespace tour {

/// Puts the pictures of one page at all sizes of the window beside each other, one sheet a page, in
/// the folder `contact`: those of a light desktop first, those of a dark one below.
/// Returns False where one could not be written.
bool MakeContactSheets(const QString& folder);

}  // namespace tour
