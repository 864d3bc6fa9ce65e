#pragma once

#include "host/geom/od_ge_extents3d.h"
#include "host/root/od_error.h"

class OdDbEntity;

namespace tdx {

/// Mass properties of a body of density 1, in world coordinates and drawing units. An open surface has volume 0
/// and the centroid of its area.
struct MassProperties
{
    double volume = 0;
    OdGePoint3d centroid;
    double momentsOfInertia[3] = {};  ///< about the world X, Y and Z axis
    double productsOfInertia[3] = {}; ///< integrals of xy, yz and zx, without the sign of the inertia tensor
    double principalMoments[3] = {};  ///< about the principal axes through the centroid
    OdGeVector3d principalAxes[3];    ///< unit vectors, in the order of the principal moments
    double radiiOfGyration[3] = {};   ///< about the world X, Y and Z axis
    OdGeExtents3d extents;            ///< exact, nothing added
};

/// Evaluates bodies. The drawing has their data only; who can evaluate them installs a modeler.
class Modeler
{
public:
    virtual ~Modeler() = default;
    virtual bool canHandle(OdDbEntity const& entity) const = 0;
    /// eOk, or why there are none, with `properties` as they were. Throws nothing of a modeling kernel.
    virtual OdResult massProperties(OdDbEntity const& entity, MassProperties& properties) const = 0;
};

/// The first installed modeler that can handle the entity; null when none can, and for null.
Modeler const* getModeler(OdDbEntity const* entity);

/// Keeps a modeler installed for as long as this object lives; modelers are asked in the order of installation.
class ModelerInstallation
{
public:
    explicit ModelerInstallation(Modeler const& modeler);
    ~ModelerInstallation();
    ModelerInstallation(ModelerInstallation const&) = delete;
    ModelerInstallation& operator=(ModelerInstallation const&) = delete;

private:
    Modeler const& m_modeler;
};

} // namespace tdx
