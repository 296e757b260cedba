// SPDX-License-Identifier: MIT
// Exceptions are recognised by their type although they come out of another library.
#include <Subsystems/Kit/Kit.h>
#include <geometry/geom.h>

#include <iostream>

// Prints what a call throws.
template <typename Call>
void Report(Call call) {
    try {
        call();
    } catch (const geom::GPCException& e) {
        std::cout << "engine: " << e.Module().Narrow() << '\n';
    } catch (const kit::Exception& e) {
        std::cout << e.Module().Narrow() << ": " << e.Message().Narrow() << '\n';
    } catch (const boost::bad_function_call&) {
        std::cout << "empty sink\n";
    }
}

int main() {
    Report([] { kit::CPodVector<geom::Vec2d, 4>().Pop(); });
    Report([] { geom::ThrowErrorImpl(L"Host", L"errors", 1, L"thrown for the host"); });
    Report([] {
        const geom::Vec2d line[] = {{0, 0}, {1, 1}};
        geom::CLineClip().ClipPolyline(line, 2, geom::CLineClip::Sink());
    });
}
