// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Reports the results of Node's test runner as GoogleTest programs do, for scripts/test_report.py.
const escaped = (text) => text.replace(/[<>&"]/g, (c) => `&#${c.charCodeAt(0)};`);

export default async function* report(events) {
    yield "<testsuites>\n";
    for await (const { type, data } of events) {
        if (type !== "test:pass" && type !== "test:fail") continue;
        const failed = type === "test:fail";
        // A file is no case of its own, unless it fails as a whole.
        if (data.name.endsWith(".test.mjs") && !failed) continue;
        const start = `<testcase classname="viewer" name="${escaped(data.name)}"`;
        if (failed) yield `${start}><failure/></testcase>\n`;
        else if (data.skip !== undefined)
            yield `${start} result="skipped"><skipped message="${escaped(String(data.skip))}"/></testcase>\n`;
        else yield `${start}/>\n`;
    }
    yield "</testsuites>\n";
}
