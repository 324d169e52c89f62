// What markgrade asks of its allocator beyond its start-up options (allocator.cpp), when it runs with
// jemalloc; without it these do nothing.
#ifndef ALLOCATOR_H
#define ALLOCATOR_H

namespace Grade {

#ifdef MARKGRADE_JEMALLOC
// Keeps freed pages for the allocations that follow instead of handing them back to the system. A
// lone pair frees and makes gigabytes of small objects, a category at a time; pages handed back
// must be faulted in and cleared again, which on a 2-core VM cost about 1.5 s of a 100,000-item
// pair. A batch keeps the default: kept pages grew it by about 7 MB a candidate.
void keepFreedPages();
#else
inline void keepFreedPages() {}
#endif

} // namespace Grade

#endif // ALLOCATOR_H
