// The history at growing sizes, as Markdown tables.
#pragma once

void BenchHistory(int rounds);
