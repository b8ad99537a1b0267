#pragma once

/** Marks a stretch of code that fills widgets itself; nests. */
class FillGuard {
public:
    explicit FillGuard(int &depth) : m_depth(depth) { ++m_depth; }
    ~FillGuard() { --m_depth; }
    FillGuard(const FillGuard &) = delete;
    FillGuard &operator=(const FillGuard &) = delete;

private:
    int &m_depth;
};
