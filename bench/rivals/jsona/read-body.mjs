// usage: node read-body.mjs FILE
// Reads the JSON:API document in FILE once for every line of the standard input and prints the nanoseconds taken.
import { readFileSync } from "node:fs";
import { createInterface } from "node:readline";
import Jsona from "jsona";

const body = readFileSync(process.argv[2]);
const reader = new (Jsona.Jsona ?? Jsona.default ?? Jsona)();
let venues = null;
for await (const line of createInterface({ input: process.stdin })) {
  venues = null;
  const start = process.hrtime.bigint();
  venues = reader.deserialize(body.toString("utf8"));
  const end = process.hrtime.bigint();
  if (line !== "read" || !Array.isArray(venues)) process.exit(1);
  process.stdout.write(`${end - start}\n`);
}
