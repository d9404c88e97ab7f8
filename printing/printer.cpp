#include "printing/printer.h"

#include "common/number_masks.h"

namespace contavia {

double fontPoints(std::string_view sizeText) { return italianToDouble(sizeText).value_or(0.0); }

}  // namespace contavia
