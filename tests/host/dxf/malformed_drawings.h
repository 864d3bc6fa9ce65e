#pragma once

#include <functional>
#include <string>
#include <vector>

// Drawings that something is wrong with, for the tests of how they are opened.

struct MalformedDrawing
{
    static constexpr int kRefused = -1;

    char const* name;
    std::function<std::string()> build;
    /// One of the messages of opening it begins like this: "<place>: <text>", the place as in messages without the
    /// path, ":15" or ": byte 15"; of a refused drawing what stands behind the path.
    char const* message;
    /// Entities of model space that are left, erased ones there are none; kRefused for a drawing that is not
    /// opened.
    int entities;
    /// Blocks besides model space and sheets.
    int blocks = 0;
};

std::vector<MalformedDrawing> cutOffDrawings();
std::vector<MalformedDrawing> wrongStructures();
std::vector<MalformedDrawing> wrongValues();
std::vector<MalformedDrawing> wrongBinaryDrawings();
/// Drawings that are large, or small and of large effect.
std::vector<MalformedDrawing> excessiveDrawings();
