#include "mole/Statistics.h"

#include "mole/ReadingsDisks.h"

#include <statgrab.h>

namespace zolva::mole {

Statistics::Statistics()
{
    // A part of the library that cannot start gives no readings; the others still do.
    sg_init(1);
    limitToDiskFileSystems();
}

Statistics::~Statistics()
{
    sg_shutdown();
}

} // namespace zolva::mole
