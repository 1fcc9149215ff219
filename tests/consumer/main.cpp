// A program outside the project that uses the installed library as a client would.
#include <ravelin/ravelin.h>

#include <cstdio>

int main() {
    using namespace ravelin;
    int failures = 0;
    auto check = [&failures](bool ok, const char* what) {
        if (!ok) {
            std::fprintf(stderr, "consumer: %s failed\n", what);
            ++failures;
        }
    };

    check(Number(1.0) == 1.0000004, "Number band");
    RvPoint3D v(3, 4, 0);
    check(v.GetSize() == 5.0, "RvPoint3D::GetSize");

    CMemFile file;
    CArchive store(&file, CArchive::store);
    RvPoint2D written(1, 2, 3, 4, 5);
    store.WriteObject(&written);

    CMemFile copy(file.GetData());
    CArchive load(&copy, CArchive::load);
    auto read = load.ReadObject(RUNTIME_CLASS(RvPoint3D));
    const auto* point = dynamic_cast<const RvPoint2D*>(read.get());
    check(point != nullptr && *point == written, "RvPoint2D archive round trip");

    try {
        RvPoint3D::DajPriesecnik(RvPoint3D(0, 0, 1), RvPoint3D(1, 0, 0), RvPoint3D(),
                                 RvPoint3D(0, 0, 1));
        check(false, "DajPriesecnik throws for a parallel line");
    } catch (double) {
    }
    return failures == 0 ? 0 : 1;
}
