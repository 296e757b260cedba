// SPDX-License-Identifier: MIT
#include "tests/docs/PublicNames.h"

#include <gtest/gtest.h>

namespace geom::test {
namespace {

using Names = std::set<std::string>;

TEST(PublicNames, FunctionsAndTypesOfANamespace) {
    const char* const header = R"header(
#pragma once
#define NOT_A_NAME(x) \
    Neither(x)
namespace geom {
class Ahead;
/// Mentioned() in a comment.
GEOM_API double Length(const Vec2d* pts, std::size_t n = Count(1));
GEOM_API const wchar_t* Name();
enum Kind : int { FIRST = Value(1), SECOND };
using kit::Vec2d;
template <typename T, std::size_t N>
class Box {
public:
    T Corner() const;
};
inline constexpr double PI = 3.14;
static_assert(sizeof(int) == 4, "text with Call()");
    namespace detail {
    void Hidden();
    }
}
)header";
    EXPECT_EQ(PublicNames(header),
              (Names{"Length", "Name", "Kind", "Vec2d", "Box", "Box::Corner"}));
}

TEST(PublicNames, MembersOfClasses) {
    const char* const header = R"header(
namespace geom {
class GEOM_API Thing : public Base {
    void ImplicitlyPrivate();
public:
    using Sink = boost::function<void(int)>;
    Thing() : m_a(0), m_b(Start()) {}
    virtual ~Thing();
    bool operator==(const Thing& o) const { return Same(o); }
    double operator()(int i) const;
    double A() const { if (m_a) { return 1; } return 2; }
    class Inner {
    public:
        virtual bool Get(int index) const = 0;
    private:
        void Set();
    };
    double field = 0.0;
protected:
    void Protected();
    struct Shape {
        void Method();
    };
private:
    template <typename T>
    void Private(T t);
    int m_a;
};
struct Data {
    int count;
    void Clear();
};
}
)header";
    EXPECT_EQ(
        PublicNames(header),
        (Names{"Thing", "Thing::Sink", "Thing::Thing", "Thing::operator==", "Thing::operator()",
               "Thing::A", "Thing::Inner", "Thing::Inner::Get", "Data", "Data::Clear"}));
}

} // namespace
} // namespace geom::test
