// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace geom {
class GpcPolygon;
class LineClipPolygon;
class Polygon2;
} // namespace geom

/// \file
/// The calls of the whole library, for programs that try something on each of them.

namespace geom::test {

/// What happens around a call. The programs that try all calls say it here.
class Conductor {
public:
    virtual ~Conductor() = default;
    /// What stands in the place of the next number of the inputs.
    virtual double Number(double usual) { return usual; }
    /// How many points the larger inputs have.
    virtual int Many() const { return 24; }
    /// Makes the call, perhaps more than once; `afterFailure` checks what a failed call promises.
    virtual void Run(void (*call)(void*), void (*afterFailure)(void*), void* context) = 0;
};

/// A hash of values, to the bit.
class Fingerprint {
public:
    template <typename T, typename = std::enable_if_t<std::is_arithmetic_v<T> || std::is_enum_v<T>>>
    void Add(T value) {
        Mix(&value, sizeof value);
    }
    void Add(const Vec2d& p) { Mix(&p, sizeof p); }
    void Add(const Vec3d& p) { Mix(&p, sizeof p); }
    void Add(const kit::Vec4d& p) { Mix(&p, sizeof p); }
    void Add(const Box2d& box) { Mix(&box, sizeof box); }
    void Add(const kit::Mat4d& matrix) { Mix(&matrix, sizeof matrix); }
    void Add(const tagPOINT& p) { Mix(&p, sizeof p); }
    template <typename T>
    void Add(const std::vector<T>& values) {
        Add(values.size());
        for (const T& value : values) {
            Add(value);
        }
    }
    void Add(const std::string& text);
    void Add(const GpcPolygon& polygon);
    void Add(const LineClipPolygon& polygon);
    void Add(const Polygon2& polygon);

    std::uint64_t Value() const { return m_value; }

private:
    void Mix(const void* first, std::size_t size);

    std::uint64_t m_value = 0xCBF29CE484222325;
};

template <typename T>
std::uint64_t FingerprintOf(const T& value) {
    Fingerprint fingerprint;
    fingerprint.Add(value);
    return fingerprint.Value();
}

/// One trial of a call: where its inputs come from and where its results go.
///
/// Everything that is made of Number, Point and so on is a position in which an extreme value
/// may stand.
class Trial {
public:
    explicit Trial(Conductor& conductor) : m_conductor(conductor) {}

    double Number(double usual) { return m_conductor.Number(usual); }
    /// The integer that is nearest to the number; 0 when it is none.
    std::int32_t Integer(std::int32_t usual);
    Vec2d Point(double x, double y);
    Vec3d Point(double x, double y, double z);
    tagPOINT Device(std::int32_t x, std::int32_t y);
    Box2d Box(double left, double bottom, double right, double top);
    std::vector<Vec2d> Points(std::initializer_list<Vec2d> usual);
    std::vector<tagPOINT> Devices(std::initializer_list<tagPOINT> usual);
    /// A ring that turns left and right about a centre.
    std::vector<Vec2d> Star(double x, double y);
    /// A zigzag from left to right across the star about (0, 0).
    std::vector<Vec2d> Zigzag();

    /// Makes the call. It keeps to its inputs: what Keep() was told of is the same afterwards.
    ///
    /// \param call may be repeated; it then does the same to outputs that a failure has left.
    /// \param afterFailure checks what the call promises about its outputs when it has failed.
    template <typename Function, typename Check>
    void Call(Function call, Check afterFailure) {
        struct Both {
            Function& call;
            Check& check;
        } both{call, afterFailure};
        m_conductor.Run([](void* context) { static_cast<Both*>(context)->call(); },
                        [](void* context) { static_cast<Both*>(context)->check(); }, &both);
        ExpectKept();
    }
    template <typename Function>
    void Call(Function call) {
        Call(call, [] {});
    }

    /// Makes a call that returns its result.
    template <typename Function>
    void Answer(Function call) {
        decltype(call()) answer{};
        Call([&] { answer = call(); });
        Result(answer);
    }

    /// Names memory that the call must not change, until the end of the trial.
    void KeepBytes(const void* first, std::size_t size);
    template <typename T>
    void Keep(const std::vector<T>& values) {
        KeepBytes(values.data(), values.size() * sizeof(T));
    }
    /// The same for an array that is moved to where it stays.
    template <typename T>
    std::vector<T> Keep(std::vector<T>&& values) {
        KeepBytes(values.data(), values.size() * sizeof(T));
        return std::move(values);
    }
    void Keep(const GpcPolygon& polygon);
    void Keep(const Polygon2& polygon);

    /// Adds a result to the trial's fingerprint.
    template <typename T>
    void Result(const T& value) {
        m_fingerprint.Add(value);
    }

    std::uint64_t Value() const { return m_fingerprint.Value(); }

private:
    struct Kept {
        const void* first;
        std::vector<unsigned char> bytes;
    };

    void ExpectKept() const;

    Conductor& m_conductor;
    std::vector<Kept> m_kept;
    Fingerprint m_fingerprint;
};

/// The beginnings of "module, file line: message", of "bad_alloc" and of the other errors that a
/// call may report.
using Errors = std::vector<std::string>;

/// One public function, or one of its overloads.
struct PublicCall {
    /// As in docs/reference.md, perhaps with the overload behind it in parentheses.
    std::string name;
    /// How exhausted memory is reported; empty when nothing is allocated.
    Errors memory;
    /// How numbers that the function cannot take are reported.
    Errors numbers;
    void (*run)(Trial& trial);

    /// The name without the overload.
    std::string Function() const;
};

using Calls = std::vector<PublicCall>;

Calls FoundationCalls();
Calls RectangleClipperCalls();
Calls EngineCalls();
Calls GpcPolygonCalls();
Calls ClipUtilCalls();
Calls LineClipCalls();
Calls DashCalls();
Calls PolylineCalls();
Calls SegmentCalls();
Calls RingCalls();
Calls CurveCalls();
Calls SearchCalls();
Calls SpaceCalls();
Calls ErrorCalls();

/// All of them.
const Calls& AllCalls();

/// The call does without the memory that it did not get.
inline const Errors TOLERATED = {"nothing"};

/// Joins lists of errors.
Errors Together(std::initializer_list<Errors> lists);

/// Out of memory in the engine: each step of its work.
const Errors& EngineMemory();
/// What the engine says about numbers that it cannot take.
const Errors& EngineNumbers();
/// Out of memory when a GpcPolygon is made.
const Errors& ContourMemory();

/// What an exception says, in the form of Errors; to be called within a handler. Writes at most
/// `size` characters and takes nothing from the heap that it does not give back.
void DescribeException(char* text, std::size_t size);

} // namespace geom::test
