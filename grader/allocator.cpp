// Options of jemalloc, read when it starts. Grading a large project makes and frees millions of small
// objects, a category at a time, up to gigabytes at once:
// - thp:always backs them with transparent huge pages, so the kernel faults in and clears 2 MiB pages
//   rather than 4 KiB ones;
// - an arena per CPU, so that parallel workers do not wait for one another's allocations (with a
//   single arena, two workers spent 40 % more CPU time than one on the same batch).
// Freed pages go back to the system after jemalloc's default ten seconds, unless keepFreedPages says
// otherwise.
#include "allocator.h"

#include <jemalloc/jemalloc.h>

#include <string>

extern "C" {
extern const char* malloc_conf;
const char* malloc_conf = "thp:always,percpu_arena:percpu";
}

namespace Grade {

void keepFreedPages() {
    // -1: never decay. Arenas made later take the defaults; those that exist are set one by one (an
    // index without an arena yet is refused, which is fine).
    ssize_t never = -1;
    for (const char* name : {"arenas.dirty_decay_ms", "arenas.muzzy_decay_ms"})
        mallctl(name, nullptr, nullptr, &never, sizeof never);
    unsigned arenas = 0;
    size_t size = sizeof arenas;
    if (mallctl("arenas.narenas", &arenas, &size, nullptr, 0) != 0)
        return;
    for (unsigned i = 0; i < arenas; ++i)
        for (const char* decay : {".dirty_decay_ms", ".muzzy_decay_ms"}) {
            const std::string name = "arena." + std::to_string(i) + decay;
            mallctl(name.c_str(), nullptr, nullptr, &never, sizeof never);
        }
}

} // namespace Grade
