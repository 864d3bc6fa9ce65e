"""The view of a viewport in drawings before R2000: ezdxf leaves it in the extended data where it stands there."""

from ezdxf.math import Vec3

APPLICATION = (1001, "ACAD")
TITLE = (1000, "MVIEW")

# Values by group code, in the order of the extended data.
REALS = ("view_twist_angle", "view_height", "center_x", "center_y", "perspective_lens_length",
         "front_clip_plane_z_value", "back_clip_plane_z_value", "snap_angle", "snap_base_x", "snap_base_y",
         "snap_spacing_x", "snap_spacing_y", "grid_spacing_x", "grid_spacing_y")
PLANE_POINTS = {"view_center_point": "center", "snap_base_point": "snap_base", "snap_spacing": "snap_spacing",
                "grid_spacing": "grid_spacing"}
POINTS = ("view_target_point", "view_direction_vector")
CIRCLE_ZOOM = 2  # its number among the integers, behind version and view mode


def attributes_of_view(record):
    """The attributes by the names that ezdxf has for them in drawings of today; none without a view."""
    if APPLICATION not in record.tags or TITLE not in record.tags:
        return {}
    values = record.values_by_code()
    points = zip(*(map(float, values.get(code, ())) for code in (1010, 1020, 1030)))
    attributes = dict(zip(POINTS, map(Vec3, points)))
    reals = dict(zip(REALS, map(float, values.get(1040, ()))))
    for name, prefix in PLANE_POINTS.items():
        attributes[name] = Vec3(reals.pop(prefix + "_x"), reals.pop(prefix + "_y"))
    attributes["circle_zoom"] = values[1070][CIRCLE_ZOOM]
    return {**attributes, **reals}
