// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/engine/RealtimeTrap.h"

#include <cstdlib>
#include <dlfcn.h>
#include <new>
#include <pthread.h>
#include <semaphore.h>

namespace {

thread_local bool trapped = false;
thread_local int allocationCount = 0;
thread_local int lockCount = 0;

void countAllocation() { allocationCount += trapped ? 1 : 0; }

void countLock() { lockCount += trapped ? 1 : 0; }

template <typename Function> Function next(const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

} // namespace

RealtimeTrap::RealtimeTrap()
{
    allocationCount = lockCount = 0;
    trapped = true;
}

RealtimeTrap::~RealtimeTrap() { trapped = false; }

int RealtimeTrap::allocations() const { return allocationCount; }

int RealtimeTrap::locks() const { return lockCount; }

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
void* operator new(std::size_t size)
{
    countAllocation();
    if (void* memory = std::malloc(size == 0 ? 1 : size))
        return memory;
    throw std::bad_alloc();
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    countAllocation();
    return std::malloc(size == 0 ? 1 : size);
}

void operator delete(void* memory) noexcept
{
    countAllocation();
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    countAllocation();
    std::free(memory);
}
#else
extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* memory);

void* malloc(std::size_t size)
{
    countAllocation();
    return __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size)
{
    countAllocation();
    return __libc_calloc(count, size);
}

void* realloc(void* memory, std::size_t size)
{
    countAllocation();
    return __libc_realloc(memory, size);
}

void* aligned_alloc(std::size_t alignment, std::size_t size)
{
    countAllocation();
    return __libc_memalign(alignment, size);
}

void free(void* memory)
{
    countAllocation();
    __libc_free(memory);
}

} // extern "C"
#endif

extern "C" {

int pthread_mutex_lock(pthread_mutex_t* mutex)
{
    countLock();
    static const auto function = next<int (*)(pthread_mutex_t*)>("pthread_mutex_lock");
    return function(mutex);
}

int pthread_rwlock_rdlock(pthread_rwlock_t* lock)
{
    countLock();
    static const auto function = next<int (*)(pthread_rwlock_t*)>("pthread_rwlock_rdlock");
    return function(lock);
}

int pthread_rwlock_wrlock(pthread_rwlock_t* lock)
{
    countLock();
    static const auto function = next<int (*)(pthread_rwlock_t*)>("pthread_rwlock_wrlock");
    return function(lock);
}

int sem_wait(sem_t* semaphore)
{
    countLock();
    static const auto function = next<int (*)(sem_t*)>("sem_wait");
    return function(semaphore);
}

} // extern "C"
