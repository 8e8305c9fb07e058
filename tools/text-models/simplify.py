# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""Rewrites that leave a graph's results as they are, to rounding, and its work less."""
import numpy as np

from onnx_graph import attributes, set_attributes, set_inputs


def simplify(graph):
    clips_by_attribute(graph)
    for node in list(graph.nodes):
        if node.op_type == "Mul" and graph.scalar_operand(node) == 1:
            graph.bypass(node, graph.operands(node)[0])
    while fold_one(graph):
        pass
    hard_swishes(graph)
    depthwise_convolutions(graph)


def clips_by_attribute(graph):
    """OpenCV takes the bounds of Clip for attributes, as they were before the eleventh operator set."""
    for node in graph.nodes:
        if node.op_type == "Clip" and len(node.input) == 3:
            source, low, high = node.input
            set_inputs(node, source)
            set_attributes(node, min=graph.scalar(low), max=graph.scalar(high))


def fold_one(graph):
    """Folds one scalar or one normalisation into a convolution beside it; whether there was one."""
    users, producers = graph.users(), graph.producers()
    for node in graph.nodes:
        before = producers.get(node.input[0] if node.op_type == "BatchNormalization"
                               else graph.operands(node)[0] if len(node.input) == 2 else None)
        follows = (before is not None and before.op_type in ("Conv", "ConvTranspose")
                   and len(users[before.output[0]]) == 1)
        if node.op_type == "BatchNormalization" and follows:
            fold_normalisation(graph, before, node)
            return True
        if node.op_type == "Add" and follows and bias_of(graph, node) is not None:
            weights, bias = graph.weights(before)
            if before.op_type == "ConvTranspose" and len(before.input) == 2:
                bias = np.zeros(weights.shape[1])
            graph.set_weights(before, weights, bias + bias_of(graph, node))
            graph.bypass(node, before.output[0])
            return True
        if node.op_type == "Mul" and follows and graph.scalar_operand(node) is not None:
            weights, bias = graph.weights(before)
            factor = graph.scalar_operand(node)
            graph.set_weights(before, weights * factor, bias * factor)
            graph.bypass(node, before.output[0])
            return True
        if node.op_type in ("Mul", "Add") and fold_forward(graph, node, users):
            return True
    return False


def bias_of(graph, node):
    """What an addition adds to each channel; None when it adds something else."""
    values = graph.constants.get(graph.operands(node)[1])
    if values is None or (values.size > 1 and values.shape != (1, values.size, 1, 1)):
        return None
    return values.reshape(-1).astype(np.float64)


def fold_normalisation(graph, conv, norm):
    gamma, beta, mean, variance = (graph.constants[name].astype(np.float64)
                                   for name in norm.input[1:5])
    factor = gamma / np.sqrt(variance + attributes(norm)["epsilon"])
    weights, bias = graph.weights(conv)
    axis = 1 if conv.op_type == "ConvTranspose" else 0  # where the output channels are
    shape = [1] * weights.ndim
    shape[axis] = -1
    graph.set_weights(conv, weights * factor.reshape(shape), (bias - mean) * factor + beta)
    graph.bypass(norm, conv.output[0])


def fold_forward(graph, node, users):
    """Folds a scalar into the convolutions that alone read its result."""
    value, readers = graph.scalar_operand(node), users[node.output[0]]
    if value is None or not readers or node.output[0] == graph.output:
        return False
    source = graph.operands(node)[0]
    if all(reader.op_type == "Conv" for reader in readers):
        # The border of a padded convolution is zero, to which nothing was added.
        if node.op_type == "Add" and any(any(attributes(conv)["pads"]) for conv in readers):
            return False
        for conv in readers:
            weights, bias = graph.weights(conv)
            if node.op_type == "Mul":
                graph.set_weights(conv, weights * value, bias)
            else:
                graph.set_weights(conv, weights, bias + value * weights.sum((1, 2, 3)))
        graph.bypass(node, source)
        return True
    if node.op_type == "Mul" and len(readers) == 1 and readers[0].op_type == "Add":
        # a·x + b = a·(x + b/a), so that the factor folds into the convolutions behind the sum.
        add = readers[0]
        convs, offset = users[add.output[0]], graph.scalar_operand(add)
        if offset is None or abs(value) < 1e-3 or not convs:
            return False
        if any(conv.op_type != "Conv" for conv in convs):
            return False
        for conv in convs:
            weights, bias = graph.weights(conv)
            graph.set_weights(conv, weights * value, bias)
        set_inputs(add, source, graph.constant("offset " + add.output[0],
                                               np.array(offset / value, np.float32)))
        graph.remove(node)
        return True
    return False


def hard_swishes(graph):
    """x · clip(x + 3, 0, 6) / 6, four nodes, becomes one, which the program brings along."""
    producers, users = graph.producers(), graph.users()
    for divide in list(graph.nodes):
        if divide.op_type != "Div" or graph.scalar_operand(divide) != 6:
            continue
        product = producers.get(divide.input[0])
        if product is None or product.op_type != "Mul":
            continue
        source, clip = product.input
        clip = producers[clip]
        add = producers[clip.input[0]]
        assert (clip.op_type == "Clip" and attributes(clip) == {"min": 0, "max": 6}
                and add.op_type == "Add" and add.input[0] == source
                and graph.scalar_operand(add) == 3)
        for node in (product, clip, add):
            graph.remove(node)
        offset = 0.0
        readers = users[divide.output[0]]
        if len(readers) == 1 and readers[0].op_type == "Add" and \
                graph.scalar_operand(readers[0]) is not None:
            offset = graph.scalar_operand(readers[0])
            graph.bypass(readers[0], divide.output[0])
        set_inputs(divide, source)
        divide.op_type = "TovarinHardSwish"
        set_attributes(divide, offset=offset)


def depthwise_convolutions(graph):
    """Those with padding become nodes that the program brings along: OpenCV 4.6 takes many times as
    long for them as they need."""
    for conv in graph.nodes:
        if conv.op_type != "Conv":
            continue
        given = attributes(conv)
        weights, bias = graph.weights(conv)
        if given["group"] == 1 or weights.shape[1] != 1:
            continue
        size = weights.shape[2]
        assert weights.shape[3] == size and list(given["pads"]) == [size // 2] * 4
        graph.set_weights(conv, weights, bias)
        conv.op_type = "TovarinDepthwise"
        down, right = given["strides"]
        set_attributes(conv, kernel=size, stride_y=down, stride_x=right)
