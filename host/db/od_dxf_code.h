#pragma once

/// What the group codes of drawing files carry.
class OdDxfCode
{
public:
    /// Kinds of values. The numbers 7, 8 and 9 are fixed: reals and points are compared with a tolerance by them.
    enum Type
    {
        kUnknown = 0,
        kString = 1,
        kBool = 2,
        kInt16 = 3,
        kInt32 = 4,
        kInt64 = 5,
        kBinary = 6, ///< hexadecimal digits in text files
        kReal = 7,
        kAngle = 8, ///< degrees in files
        kPoint = 9, ///< first coordinate; the others follow under this code + 10 and + 20
        kHandle = 10,
        kSoftPointer = 11,
        kHardPointer = 12,
        kSoftOwner = 13,
        kHardOwner = 14,
        kEntityName = 15, ///< in lists in memory only
        kComment = 16
    };

    /// The kind of value of a group code; kUnknown for a code that carries none, such as -3.
    static Type _getType(int code);

    /// Text that names another object or the object itself: a handle or one of the four kinds of reference.
    static constexpr bool isHandleText(Type type) { return type >= kHandle && type <= kHardOwner; }
    /// A reference that is to be translated when objects are copied between drawings.
    static constexpr bool isReference(Type type) { return type >= kSoftPointer && type <= kHardOwner; }
};
