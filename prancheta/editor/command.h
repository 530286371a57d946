// SPDX-License-Identifier: MIT
// Built-in commands: coroutines that await their inputs, so that a command can be left waiting.
#pragma once

#include <coroutine>
#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "prancheta/editor/user_interface.h"

namespace prancheta {

class Editor;

/// An interpreted answer. `status` is RTNORM, RTNONE (bare Enter), RTCAN (Esc), RTKWORD (`text`
/// holds the keyword's global word, upper and lower case as in the list) or, for an entity, RTERROR
/// (nothing there).
struct InputValue {
    int status = 0;
    AcGePoint3d point;     ///< world coordinates
    double number = 0.0;   ///< distance, angle in radians, real or integer
    bool byPoint = false;  ///< a distance or an angle is that of `point`
    std::wstring text;
    std::vector<AcDbObjectId> entities;
    std::vector<AcGePoint3d> crossing;  ///< for a selection: as in RawInput
    /// Shift was held: for a selection the entities are to be taken out.
    bool removes = false;
};

/// A command that is running: the question it waits for, and where to go on with the answer. One
/// object for the whole chain of nested tasks.
class CommandRun {
public:
    bool waiting() const { return m_waiting != nullptr; }
    const InputRequest& request() const { return m_request; }
    /// Gives the answer and goes on until the next question or the end.
    void answer(InputValue value) {
        m_answer = std::move(value);
        std::exchange(m_waiting, nullptr).resume();
    }

private:
    friend struct InputAwaiter;
    InputRequest m_request;
    InputValue m_answer;
    std::coroutine_handle<> m_waiting;
};

/// `co_await context.ask(request)`.
struct InputAwaiter {
    CommandRun& run;
    InputRequest request;
    bool await_ready() const noexcept { return false; }
    void await_suspend(std::coroutine_handle<> handle) {
        run.m_request = std::move(request);
        run.m_waiting = handle;
    }
    InputValue await_resume() { return std::move(run.m_answer); }
};

/// Lazy coroutine with a result; awaited by another one, or started by the editor.
template <class T>
class [[nodiscard]] Task {
public:
    struct promise_type {
        std::optional<T> value;
        std::coroutine_handle<> continuation;
        std::exception_ptr failure;

        Task get_return_object() {
            return Task(std::coroutine_handle<promise_type>::from_promise(*this));
        }
        std::suspend_always initial_suspend() noexcept { return {}; }
        struct Final {
            bool await_ready() noexcept { return false; }
            std::coroutine_handle<> await_suspend(std::coroutine_handle<promise_type> h) noexcept {
                return h.promise().continuation ? h.promise().continuation : std::noop_coroutine();
            }
            void await_resume() noexcept {}
        };
        Final final_suspend() noexcept { return {}; }
        void return_value(T v) { value = std::move(v); }
        void unhandled_exception() { failure = std::current_exception(); }
    };

    Task(Task&& other) noexcept : m_handle(std::exchange(other.m_handle, nullptr)) {}
    Task& operator=(Task&& other) noexcept {
        std::swap(m_handle, other.m_handle);
        return *this;
    }
    ~Task() {
        if (m_handle) m_handle.destroy();
    }

    void start() { m_handle.resume(); }
    bool done() const { return !m_handle || m_handle.done(); }
    T result() {
        if (m_handle.promise().failure) std::rethrow_exception(m_handle.promise().failure);
        return std::move(*m_handle.promise().value);
    }

    bool await_ready() const noexcept { return false; }
    std::coroutine_handle<> await_suspend(std::coroutine_handle<> awaiting) {
        m_handle.promise().continuation = awaiting;
        return m_handle;
    }
    T await_resume() { return result(); }

private:
    explicit Task(std::coroutine_handle<promise_type> handle) : m_handle(handle) {}
    std::coroutine_handle<promise_type> m_handle;
};

/// How a command ended.
enum class CommandEnd { Done, Cancelled, Failed };
using CommandTask = Task<CommandEnd>;

/// What a built-in command works with.
class CommandContext {
public:
    CommandContext(Editor& editor, CommandRun& run) : m_editor(editor), m_run(run) {}

    Editor& editor() const { return m_editor; }
    AcDbDatabase& database() const;
    /// Writes to the command line.
    void print(std::wstring_view text) const;

    InputAwaiter ask(InputRequest request) const { return {m_run, std::move(request)}; }

private:
    Editor& m_editor;
    CommandRun& m_run;
};

/// One row of the table of built-in commands. The editor opens an undo group for each run, except
/// for flags with ACRX_CMD_NO_UNDO_MARKER (undo itself, views, files). After Esc the command gets
/// RTCAN and has to end; one that asks again is dropped.
struct BuiltInCommand {
    const wchar_t* global;  ///< "ROTATE"
    const wchar_t* local;   ///< "ROTACIONAR"
    int flags;              ///< ACRX_CMD_*
    CommandTask (*run)(CommandContext context);
};

}  // namespace prancheta
