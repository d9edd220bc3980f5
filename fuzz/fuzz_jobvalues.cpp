// Pens and machine profiles from JSON: no input crashes, what is read is in range, and what is
// written again reads as the same.

#include <jobkit/values/MachineProfile.h>
#include <jobkit/values/Material.h>

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray json(reinterpret_cast<const char *>(data), static_cast<int>(size));
    QString error;
    jobkit::Material material;
    if (jobkit::readMaterial(json, &material, &error)) {
        jobkit::Material again;
        if (!material.problem().isEmpty() ||
            !jobkit::readMaterial(jobkit::writeMaterial(material), &again, &error) ||
            again != material)
            std::abort();
    } else if (error.isEmpty()) {
        std::abort();
    }
    error.clear();
    jobkit::MachineProfile profile;
    if (jobkit::readProfile(json, &profile, &error)) {
        jobkit::MachineProfile again;
        if (!profile.problem().isEmpty() ||
            !jobkit::readProfile(jobkit::writeProfile(profile), &again, &error) || again != profile)
            std::abort();
    } else if (error.isEmpty()) {
        std::abort();
    }
    return 0;
}
