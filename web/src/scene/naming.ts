// The words for what is under the pointer.
import { tubesOf } from "../data/group.ts";
import type { Group, Report } from "../data/report.ts";
import type { Hit } from "../geometry/pick.ts";
import { shortNumber, withUnit } from "../page/numbers.ts";

/** Pile, element, section, diameter, wall and depth of a hit, a line each. */
export function hitLines(report: Report, group: Group, hit: Hit, isOther: boolean): string[] {
    const pile = group.piles[hit.pile];
    const unit = report.units.length;
    const number = group.section[hit.element];
    const section = group.sections.get(number);
    const lines = [`Pile ${pile.number}${isOther ? " of the other group" : ""}, element ${hit.element - pile.first_element + 1}`];
    lines.push(number > 0 ? `Section ${number}` : "No section");
    const tubes = section ? tubesOf(group, section).filter((tube) => tube.diameter > 0) : [];
    if (tubes.length > 0)
        for (const tube of tubes) lines.push(withUnit(`Diameter ${shortNumber(tube.diameter)}, wall ${shortNumber(tube.wall)}`, unit));
    else if (group.diameter[hit.element] > 0) lines.push(withUnit(`Diameter ${shortNumber(group.diameter[hit.element])}`, unit));
    else lines.push("Diameter not known: drawn thin");
    lines.push(withUnit(`z = ${shortNumber(Number(hit.point[2].toFixed(3)))}`, unit));
    return lines;
}
