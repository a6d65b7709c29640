// How the boxes of the size limit hang together: its own, and those of its lower and upper bound.
#pragma once

struct SizeLimitRule
{
    bool limit = false;
    bool lower = false;
    bool upper = false;

    // The edit of a bound can be used.
    bool IsLowerEnabled() const
    {
        return limit && lower;
    }
    bool IsUpperEnabled() const
    {
        return limit && upper;
    }
    // A limit without a bound is none.
    bool IsInForce() const
    {
        return limit && (lower || upper);
    }
    // The limit follows the bounds: after the box of one was clicked.
    void FollowBounds()
    {
        limit = lower || upper;
    }
};
