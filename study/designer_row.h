#pragma once

#include "study/record.h"

namespace kalvo {

/// One designer, a record of `CLIENTS.VAM`. Both texts are scrambled (study/designer_names.h).
struct DesignerRow {
  std::int16_t Number = 0;  ///< its place in the file, from 1 on
  FixedText<78> Name;
  FixedText<20> Password;  ///< the list's, the same on every record

  static constexpr auto kFields = std::make_tuple(RecordField{"Number", &DesignerRow::Number},
                                                  RecordField{"Name", &DesignerRow::Name},
                                                  RecordField{"Password", &DesignerRow::Password});
};

static_assert(RecordSize<DesignerRow>() == 100);

}  // namespace kalvo
