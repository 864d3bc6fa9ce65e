#pragma once

#include <coroutine>
#include <exception>
#include <optional>
#include <utility>

namespace ca {

template <class T>
class Task;

namespace detail {

/// What promises of all result types share: start on demand, return to whoever awaits, carry exceptions along.
class TaskPromiseBase
{
public:
    std::suspend_always initial_suspend() const noexcept { return {}; }
    auto final_suspend() const noexcept
    {
        struct Resumer
        {
            std::coroutine_handle<> next;
            bool await_ready() const noexcept { return false; }
            std::coroutine_handle<> await_suspend(std::coroutine_handle<>) const noexcept { return next; }
            void await_resume() const noexcept {}
        };
        return Resumer{m_continuation};
    }
    void unhandled_exception() noexcept { m_exception = std::current_exception(); }
    void setContinuation(std::coroutine_handle<> handle) { m_continuation = handle; }
    void rethrow() const
    {
        if (m_exception)
            std::rethrow_exception(m_exception);
    }

private:
    std::coroutine_handle<> m_continuation = std::noop_coroutine();
    std::exception_ptr m_exception;
};

template <class T>
class TaskPromise : public TaskPromiseBase
{
public:
    Task<T> get_return_object();
    void return_value(T value) { m_value = std::move(value); }
    T result()
    {
        rethrow();
        return std::move(*m_value);
    }

private:
    std::optional<T> m_value;
};

template <>
class TaskPromise<void> : public TaskPromiseBase
{
public:
    Task<void> get_return_object();
    void return_void() const {}
    void result() const { rethrow(); }
};

} // namespace detail

/// In coroutines, GCC 12 miscompiles two things within a co_await expression: a braced list, and a conditional
/// expression that yields temporaries of a class (they are destroyed wrongly on cancelling). Make a variable
/// first.
///
/// A coroutine that runs when it is awaited and owns its frame: destroying a suspended task destroys everything
/// that it awaits, innermost first, as leaving a scope does.
template <class T = void>
class [[nodiscard]] Task
{
public:
    using promise_type = detail::TaskPromise<T>;

    Task() = default;
    explicit Task(std::coroutine_handle<promise_type> handle) : m_handle(handle) {}
    Task(Task&& other) noexcept : m_handle(std::exchange(other.m_handle, nullptr)) {}
    Task& operator=(Task&& other) noexcept
    {
        std::swap(m_handle, other.m_handle);
        return *this;
    }
    ~Task()
    {
        if (m_handle)
            m_handle.destroy();
    }

    /// @name For the one who starts a task without awaiting it
    /// @{
    void start() { m_handle.resume(); }
    bool done() const { return !m_handle || m_handle.done(); }
    /// After done(): throws what the coroutine threw.
    T result() { return m_handle.promise().result(); }
    /// @}

    bool await_ready() const noexcept { return false; }
    std::coroutine_handle<> await_suspend(std::coroutine_handle<> caller)
    {
        m_handle.promise().setContinuation(caller);
        return m_handle;
    }
    T await_resume() { return m_handle.promise().result(); }

private:
    std::coroutine_handle<promise_type> m_handle;
};

template <class T>
Task<T> detail::TaskPromise<T>::get_return_object()
{
    return Task<T>(std::coroutine_handle<TaskPromise>::from_promise(*this));
}

inline Task<void> detail::TaskPromise<void>::get_return_object()
{
    return Task<void>(std::coroutine_handle<TaskPromise>::from_promise(*this));
}

} // namespace ca
